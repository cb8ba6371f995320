#include "json_schema/parts.h"

#include <cstring>

namespace json_schema {
namespace {

// `name` has the size of each of them, which is known when this is compiled, so that a
// comparison is one of numbers.
template <typename... More>
Keyword known_as(std::string_view name, std::string_view known, Keyword keyword,
                 const More&... more) {
  if (std::memcmp(name.data(), known.data(), known.size()) == 0) return keyword;
  if constexpr (sizeof...(more) > 0) {
    return known_as(name, more...);
  } else {
    return Keyword::other;
  }
}

}  // namespace

Keyword keyword_of(std::string_view name) {
  using enum Keyword;
  switch (name.size()) {
    case 3:
      return known_as(name, "$id", silent);
    case 4:
      return known_as(name, "type", type, "enum", enumeration, "$ref", reference);
    case 5:
      return known_as(name, "items", items, "const", constant, "title", title, "anyOf", any_of,
                      "oneOf", one_of, "allOf", all_of, "$defs", silent);
    case 7:
      return known_as(name, "default", default_value, "minimum", minimum, "maximum", maximum,
                      "example", example, "$schema", silent, "$anchor", silent);
    case 8:
      return known_as(name, "required", required, "examples", examples, "$comment", silent);
    case 10:
      return known_as(name, "properties", properties, "deprecated", deprecated);
    case 11:
      return known_as(name, "description", description, "prefixItems", prefix_items,
                      "definitions", silent);
    case 17:
      return known_as(name, "patternProperties", pattern_properties);
    case 20:
      return known_as(name, "additionalProperties", additional_properties);
    default:
      return other;
  }
}

Parts::Parts(const json::Node& schema) : schema_(schema) {
  if (schema.kind() != json::Kind::object) return;
  schema.for_each_member([this](std::string_view name, const json::Node& member) {
    const Keyword keyword = keyword_of(name);
    if (keyword < Keyword::silent) {
      members_[static_cast<std::size_t>(keyword)] = &member.token();
      given_ |= keywords_of(keyword);
    } else if (keyword == Keyword::other) {
      has_others_ = true;
    }
  });
}

}  // namespace json_schema
