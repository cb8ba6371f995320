// The schemas that stand within a schema for parts of its values.
#ifndef JSON_SCHEMA_CHILDREN_H
#define JSON_SCHEMA_CHILDREN_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "json/node.h"
#include "json_schema/conjunction.h"
#include "json_schema/walk.h"

namespace json_schema {

// Which part of a value.
enum class Step : std::uint8_t {
  property,
  pattern,  // the members whose names match
  others,   // all other members
  position,
  items  // all, or those behind the positions
};

struct Child {
  Step step;
  std::string_view name;  // of a property, or the pattern
  std::size_t position = 0;
  json::Node schema;
  std::size_t within;  // the place of the schema that it stands in
  // Others that hold of it as well, each with such a place.
  std::vector<std::pair<json::Node, std::size_t>> more = {};
};

// Of the schemas that hold of a value at once.
std::vector<Child> children_of(std::span<const Holding> all, Walk& walk);

// Makes `to` the path of a part of the value at `path`.
void path_to(const std::string& path, const Child& child, std::string& to);

}  // namespace json_schema

#endif  // JSON_SCHEMA_CHILDREN_H
