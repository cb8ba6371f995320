// The members of a schema, by their keywords.
#ifndef JSON_SCHEMA_PARTS_H
#define JSON_SCHEMA_PARTS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "json/node.h"

namespace json_schema {

enum class Keyword : std::uint8_t {
  type,
  reference,
  all_of,
  any_of,
  one_of,
  enumeration,
  constant,
  title,
  description,
  default_value,
  examples,
  example,
  deprecated,
  properties,
  pattern_properties,
  additional_properties,
  required,
  items,
  prefix_items,
  minimum,
  maximum,
  silent,  // says nothing of values: $schema, $defs and the like
  other    // limits them
};

// Some of them, a bit for each.
using Keywords = std::uint32_t;

template <typename... Each>
constexpr Keywords keywords_of(Each... each) {
  return ((Keywords{1} << static_cast<unsigned>(each)) | ...);
}

Keyword keyword_of(std::string_view name);

// Borrows from the document.
class Parts {
 public:
  // Of a schema that is no object, there are none.
  explicit Parts(const json::Node& schema);

  [[nodiscard]] const json::Node& schema() const { return schema_; }

  // Not of a silent or another keyword.
  [[nodiscard]] json::MaybeNode operator[](Keyword keyword) const {
    const json::Token* const member = members_[static_cast<std::size_t>(keyword)];
    return member == nullptr ? std::nullopt : json::MaybeNode(schema_.other(*member));
  }

  // Whether one of them is there.
  [[nodiscard]] bool has_any(Keywords keywords) const { return (given_ & keywords) != 0; }

  // Whether there are other members.
  [[nodiscard]] bool has_others() const { return has_others_; }

 private:
  json::Node schema_;
  std::array<const json::Token*, static_cast<std::size_t>(Keyword::silent)> members_ = {};
  Keywords given_ = 0;
  bool has_others_ = false;
};

}  // namespace json_schema

#endif  // JSON_SCHEMA_PARTS_H
