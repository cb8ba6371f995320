// The forms of a value that an anyOf or a oneOf gives it.
#ifndef JSON_SCHEMA_FORMS_H
#define JSON_SCHEMA_FORMS_H

#include <string>
#include <vector>

#include "json_schema/field.h"
#include "json_schema/required.h"

namespace json_schema {

struct Form {
  Field field;
  Names required = {};  // the properties that it requires
};

// What tells a form from others: its title, the name of the reference to it, its one value,
// the one value of a property, or its type.
std::string label_of(const Field& form, const json::Node& schema);

// Counts the forms that are called alike.
void tell_apart(std::vector<Form>& forms);

// The names that all forms require.
Names common_names(const std::vector<Form>& forms);

// Notes in the field what only some of the forms require.
void note_required(Field& field, const std::vector<Form>& forms, const Names& in_any_case);

// Whether all that the forms say can be said of the field as a whole: at most one of them says
// more than types and values, and nothing of that can be taken for another's.
bool can_fold(const Field& field, const std::vector<Form>& forms);
void fold(Field& field, std::vector<Form>& forms);

// Whether what an array's items are said to be can be said with "each" of the array.
bool can_fold_items(const Field& items);
void fold_items(Field& array, Field&& items);

}  // namespace json_schema

#endif  // JSON_SCHEMA_FORMS_H
