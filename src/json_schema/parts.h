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

Keyword keyword_of(std::string_view name);

// Borrows from the document.
class Parts {
 public:
  // Of a schema that is no object, there are none.
  explicit Parts(const json::Node& schema);

  [[nodiscard]] const json::Node& schema() const { return schema_; }

  // Not of a silent or another keyword.
  [[nodiscard]] const json::MaybeNode& operator[](Keyword keyword) const {
    return members_[static_cast<std::size_t>(keyword)];
  }

  // Whether there are other members.
  [[nodiscard]] bool has_others() const { return has_others_; }

 private:
  json::Node schema_;
  std::array<json::MaybeNode, static_cast<std::size_t>(Keyword::silent)> members_ = {};
  bool has_others_ = false;
};

}  // namespace json_schema

#endif  // JSON_SCHEMA_PARTS_H
