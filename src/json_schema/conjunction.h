// The schemas that hold of a value at once.
#ifndef JSON_SCHEMA_CONJUNCTION_H
#define JSON_SCHEMA_CONJUNCTION_H

#include <cstddef>
#include <span>
#include <vector>

#include "json_schema/parts.h"
#include "json_schema/walk.h"

namespace json_schema {

struct Holding {
  Parts parts;
  std::size_t led_from = 0;  // the place of the schema that led to it; its own if none did
  // Of the first one, those that it stands in where the others do not stand in them as well.
  std::vector<json::Node> around = {};
};

// Whether there may be others than the schema itself.
bool leads_further(const Parts& parts);

// Adds the schema itself; where its $ref leads; those of its allOf; and of a union that has
// only one besides null, that one. Each has those that it leads to behind it, and stands there
// once.
void add_all_that_hold(const json::Node& schema, Walk& walk, std::vector<Holding>& all);

// One of them with all that led to it, and with what is around it.
std::vector<json::Node> way_to(std::size_t place, std::span<const Holding> all);

// The schemas of a union that allow more than null, or say more of it.
std::vector<json::Node> more_than_null(const json::Node& schemas);

}  // namespace json_schema

#endif  // JSON_SCHEMA_CONJUNCTION_H
