// What a JSON Schema says of a parameter, of a member of an object or of an array's items.
#ifndef JSON_SCHEMA_FIELD_H
#define JSON_SCHEMA_FIELD_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"

namespace json_schema {

// A keyword that limits the values, with what it is given: "minimum" and 1.
struct Limit {
  std::string_view keyword;
  json::Node value;
};

// Borrows from the document that it was read from.
struct Field {
  std::string_view name = {};
  std::string path = {};                // "edits[].oldText": from the tool's parameters
  std::size_t depth = 0;                // 0: a parameter itself
  std::string type = {};                // in words: "string or integer[]"
  std::vector<std::string> types = {};  // the parts of that
  bool is_required = false;
  bool is_deprecated = false;
  std::string_view title = {};
  std::string_view description = {};  // whole
  json::MaybeNode default_value = {};
  std::vector<json::Node> values = {};        // of its own, its items' and its branches'
  std::vector<Limit> limits = {};             // in the schema's order; none that says nothing
  std::vector<std::string> limit_words = {};  // the same for a reader: "at least 1"
  std::vector<json::Node> examples = {};
  std::vector<Field> fields = {};  // of objects, of its items and its branches
  json::MaybeNode schema = {};     // as it was answered
};

}  // namespace json_schema

#endif  // JSON_SCHEMA_FIELD_H
