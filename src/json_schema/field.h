// All that a JSON Schema says of a value: of a parameter, of a member of an object, of an
// array's items, or of what a tool answers.
#ifndef JSON_SCHEMA_FIELD_H
#define JSON_SCHEMA_FIELD_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"
#include "json_schema/limits.h"
#include "json_schema/words.h"

namespace json_schema {

// What is said a second time of the same value, where its $ref leads or in a schema of allOf.
struct Remark {
  std::string_view title = {};
  std::string_view description = {};
  json::MaybeNode default_value = {};
  std::string_view default_literal = {};
};

// Borrows from the document that it was read from.
struct Field {
  std::string_view name = {};  // of a property; empty for all else
  // From the tool's parameters: "edits[].oldText". Behind an object's path stands ".*" for all
  // other members and "./^x-/" for those whose names match, behind an array's "[]" for its
  // items and "[0]" for the first. Empty for a whole schema.
  std::string path = {};
  // Where the field around it may take several forms, of which this is one, with the same
  // path: what tells it from the others.
  std::string form = {};
  std::size_t depth = 0;                // 0: a parameter itself
  std::string type = {};                // in words: "string or integer[]"
  std::vector<std::string> types = {};  // the parts of that, where it has several
  bool is_required = false;
  bool is_nullable = false;  // may be null, which the words leave out
  bool has_nullable_items = false;
  bool is_deprecated = false;
  bool is_cut = false;  // more fields than there is room for
  std::string_view title = {};
  std::string_view description = {};  // whole
  json::MaybeNode default_value = {};
  std::vector<json::Node> values = {};  // of its own, its items' and its forms', each once
  std::vector<Limit> limits = {};       // its own and its items', in order
  std::vector<Words> limit_words = {};  // the same for a reader
  std::vector<Words> notes = {};        // "One of `a` or `b` is required."
  std::vector<json::Node> examples = {};
  std::vector<Remark> remarks = {};
  // The default, the values and the examples as a person types them, once they were added.
  std::string_view default_literal = {};
  std::vector<std::string_view> value_literals = {};
  std::vector<std::string_view> example_literals = {};
  std::vector<Field> fields = {};  // of objects, items and forms
  json::MaybeNode schema = {};     // as it was answered
};

// The parts of a field's type. Borrows from the field.
inline std::span<const std::string> types_of(const Field& field) {
  if (!field.types.empty()) return field.types;
  return {&field.type, field.type.empty() ? 0U : 1U};
}

}  // namespace json_schema

#endif  // JSON_SCHEMA_FIELD_H
