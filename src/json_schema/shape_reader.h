// What a JSON Schema says of a parameter, in the words of the parameter tables.
#ifndef JSON_SCHEMA_SHAPE_READER_H
#define JSON_SCHEMA_SHAPE_READER_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"
#include "json_schema/parts.h"
#include "json_schema/walk.h"

namespace json_schema {

using Types = std::vector<std::string>;

// Each member stands in the schema itself, or where its $ref leads.
struct Shape {
  Types types = {};          // distinct texts, one at least; "any" is one
  bool is_nullable = false;  // null is left out of several types
  json::MaybeNode description = {};
  json::MaybeNode default_value = {};
  json::MaybeNode minimum = {};
  json::MaybeNode maximum = {};
  std::optional<std::vector<json::Node>> values = {};  // unset: any value of the types
};

// A type that most parameters have, as a text that stays for good; empty for any other.
std::string_view common_type(std::string_view type);

// The types in one text, as in "string or integer[]".
std::string joined(const Types& types);

// Reads schemas for their shapes. What cannot be read is "any", and a fault.
class ShapeReader {
 public:
  // Must outlive this.
  explicit ShapeReader(Walk& walk) : walk_(walk) {}

  Shape read(const json::Node& schema);
  Shape read(const Parts& parts);

  // All that the schemas allow, and at least one is there.
  Shape read_union(const std::vector<json::Node>& schemas);

  // The types of a shape in one text. `schema` is where they stand.
  std::string type_text(const json::Node& schema, const Shape& shape);

 private:
  Shape read_parts(const Parts& parts);
  Shape read_where_led(const Parts& parts);
  Shape read_union(const json::Node& schemas);
  Shape read_intersection(const json::Node& schemas);
  Shape read_reference(const json::Node& reference);
  void add_allowed(const Parts& parts, Shape& shape);
  // Whether they have types in common.
  bool intersect_types(const json::Node& schemas, const Shape& schema, Shape& shape);
  void declare_types(const Parts& parts, Shape& shape);
  std::string declared_type(const json::Node& name, const Parts& parts);
  Shape read_items(const Parts& parts);
  std::string bounded(const json::Node& schema, std::string text);

  Walk& walk_;
  std::size_t depth_ = 0;
};

}  // namespace json_schema

#endif  // JSON_SCHEMA_SHAPE_READER_H
