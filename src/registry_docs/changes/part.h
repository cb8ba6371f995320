// What a schema says of one part of a value, in the same form whether or not what is said of
// an array's items, or of the forms of a value, was folded into the field around them.
#ifndef REGISTRY_DOCS_CHANGES_PART_H
#define REGISTRY_DOCS_CHANGES_PART_H

#include <string>
#include <string_view>
#include <vector>

#include "json_schema/field.h"
#include "registry_docs/changes/types.h"

namespace registry_docs::changes {

struct Note {
  std::string text;
  std::string rest;  // without what the form that it is about is called
};

// Borrows from the field that it was made of.
struct Part {
  std::string path = {};
  std::string_view form = {};
  bool is_property = false;
  bool is_required = false;
  bool is_nullable = false;
  bool is_deprecated = false;
  Types types = {};  // empty where those around it say them: of an array's items
  std::string_view title = {};
  std::string_view description = {};
  json::MaybeNode default_value = {};
  std::vector<json::Node> values = {};
  std::vector<json_schema::Limit> limits = {};  // of its own, each once
  std::vector<Note> notes = {};
  std::vector<json::Node> examples = {};
  std::vector<std::string> remarks = {};
  // Whether the forms say it already, or the places of an array.
  bool forms_say_types = false;
  bool forms_say_values = false;
  bool forms_say_description = false;
  std::vector<Part> forms = {};
  std::vector<Part> items = {};  // of an array, one or none
  std::vector<Part> parts = {};  // of all else that is within it
};

Part part_of(const json_schema::Field& field);

// Lets the part say all that its forms do, which it has no more.
void fold_forms(Part& part);

// With null, if it is allowed.
Types all_types(const Part& part);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_PART_H
