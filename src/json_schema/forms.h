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

// Whether all of them say nothing but what parameters there are.
bool are_of_parameters(const std::vector<Form>& forms);

// Adds what the forms say besides their fields.
void gather(Field& field, std::vector<Form>& forms);

// Adds the values that the forms list.
void unite_values(Field& field, const std::vector<Form>& forms);

// Says of the field as a whole what its forms say, if that can be said so: at most one of them
// says more than types and values, and nothing of that can be taken for another's. Else adds
// each as a field of its own.
void add_forms(Field& field, std::vector<Form>& forms);

// Puts a field that was read as a part of another one below it.
void deepen(Field& field);

// Whether what an array's items are said to be can be said with "each" of the array.
bool can_fold_items(const Field& items);
void fold_items(Field& array, Field&& items);

}  // namespace json_schema

#endif  // JSON_SCHEMA_FORMS_H
