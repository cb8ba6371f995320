// The keywords of a schema that limit its values.
#ifndef JSON_SCHEMA_LIMITS_H
#define JSON_SCHEMA_LIMITS_H

#include <string_view>
#include <vector>

#include "json/node.h"
#include "json_schema/parts.h"
#include "json_schema/walk.h"
#include "json_schema/words.h"

namespace json_schema {

// A keyword with what it is given: "minimum" and 1.
struct Limit {
  std::string_view keyword;
  json::Node value;
  bool is_of_items = false;  // holds of each item, not of the array
};

// Adds those of a schema, in its order: every member that is not shown otherwise and says
// something. A bound that is the largest safe integer, and a size of at least 0, do not.
void add_limits(const Parts& parts, Walk& walk, std::vector<Limit>& limits);

// The limits for a reader, those that make a range as one: "2 to 5 items". What there are no
// words for is `keyword: JSON`.
std::vector<Words> words_of(const std::vector<Limit>& limits);

}  // namespace json_schema

#endif  // JSON_SCHEMA_LIMITS_H
