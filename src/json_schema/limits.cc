#include "json_schema/limits.h"

#include <algorithm>
#include <array>
#include <string>

namespace json_schema {
namespace {

using json::Kind;
using json::Node;

template <typename Names>
bool holds(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

constexpr std::string_view exclusive_minimum = "exclusiveMinimum";
constexpr std::string_view exclusive_maximum = "exclusiveMaximum";

constexpr std::array<std::string_view, 5> lower = {"minimum", exclusive_minimum, "minLength",
                                                   "minItems", "minProperties"};
constexpr std::array<std::string_view, 5> upper = {"maximum", exclusive_maximum, "maxLength",
                                                   "maxItems", "maxProperties"};

bool is_number(const Node& value) {
  return value.kind() == Kind::integer || value.kind() == Kind::floating;
}

bool is_true(const Node& value) { return value.kind() == Kind::boolean && value.boolean(); }
bool is_false(const Node& value) { return value.kind() == Kind::boolean && !value.boolean(); }

// Also of the sizes of what can be no smaller than nothing.
bool is_no_bound(std::string_view keyword, const Node& value) {
  constexpr std::string_view largest = "9007199254740991";
  if (!is_number(value)) return false;
  const std::string number = value.json();
  if (holds(upper, keyword)) return number == largest;
  if (!holds(lower, keyword)) return false;
  return number == "-" + std::string(largest) ||
         (number == "0" && keyword != "minimum" && keyword != exclusive_minimum);
}

// Whether every value fits.
bool is_no_limit(std::string_view keyword, const Node& value) {
  constexpr std::array<std::string_view, 5> flags = {"uniqueItems", "readOnly", "writeOnly",
                                                     exclusive_minimum, exclusive_maximum};
  if (is_false(value)) return holds(flags, keyword);
  constexpr std::array<std::string_view, 4> schemas = {
      "propertyNames", "unevaluatedProperties", "additionalItems", "unevaluatedItems"};
  if (!holds(schemas, keyword)) return is_no_bound(keyword, value);
  // A name is a string in any case.
  return is_true(value) || value.json() == "{}" ||
         (keyword == "propertyNames" && value.json() == R"({"type":"string"})");
}

bool is_limit(const Parts& parts, std::string_view name, const Node& value) {
  switch (keyword_of(name)) {
    case Keyword::other:
    case Keyword::minimum:
    case Keyword::maximum:
      return !is_no_limit(name, value);
    case Keyword::additional_properties:
      return is_false(value);
    case Keyword::items:
      return is_false(value) && parts[Keyword::prefix_items];
    default:
      return false;
  }
}

void require_number(const Limit& limit, Walk& walk) {
  const bool is_flag =
      limit.keyword.starts_with("exclusive") && limit.value.kind() == Kind::boolean;
  const bool is_bound = holds(lower, limit.keyword) || holds(upper, limit.keyword) ||
                        limit.keyword == "multipleOf";
  if (is_bound && !is_flag && !is_number(limit.value)) {
    walk.add_fault(limit.value, "a number", kind_name(limit.value.kind()));
  }
}

bool may_limit(const Parts& parts) {
  const auto& others = parts[Keyword::additional_properties];
  return parts.has_others() || parts[Keyword::minimum] || parts[Keyword::maximum] ||
         parts[Keyword::prefix_items] || (others && is_false(*others));
}

}  // namespace

void add_limits(const Parts& parts, Walk& walk, std::vector<Limit>& limits) {
  if (!may_limit(parts)) return;
  parts.schema().for_each_member([&](std::string_view name, const Node& value) {
    if (!is_limit(parts, name, value)) return;
    limits.push_back({.keyword = name, .value = value});
    require_number(limits.back(), walk);
  });
}

}  // namespace json_schema
