#include "registry_docs/changes/limits.h"

#include <algorithm>
#include <array>
#include <optional>
#include <type_traits>
#include <variant>

namespace registry_docs::changes {
namespace {

using json::Kind;
using json_schema::Limit;

constexpr std::array<std::string_view, 6> lower = {
    "minimum", "exclusiveMinimum", "minLength", "minItems", "minProperties", "minContains"};
constexpr std::array<std::string_view, 6> upper = {
    "maximum", "exclusiveMaximum", "maxLength", "maxItems", "maxProperties", "maxContains"};
constexpr std::array<std::string_view, 5> closing = {"additionalProperties",
                                                     "unevaluatedProperties", "items",
                                                     "additionalItems", "unevaluatedItems"};
// All others are for people, or of somebody's own.
constexpr std::array<std::string_view, 15> others = {
    "multipleOf",
    "pattern",
    "format",
    "contentEncoding",
    "contentMediaType",
    "contentSchema",
    "uniqueItems",
    "not",
    "if",
    "then",
    "else",
    "contains",
    "dependentSchemas",
    "dependentRequired",
    "dependencies",
};

template <typename Names>
bool holds(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

bool limits_values(std::string_view keyword) {
  return holds(lower, keyword) || holds(upper, keyword) || holds(closing, keyword) ||
         holds(others, keyword) || keyword == "propertyNames";
}

// A bound, exactly, on systems whose widest floating-point type holds 64 bits.
std::optional<long double> number_of(const json::Node& value) {
  if (value.kind() != Kind::integer && value.kind() != Kind::floating) return std::nullopt;
  const registry_docs::Value number = value.value();
  return std::visit(
      [](const auto& held) -> std::optional<long double> {
        if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(held)>>) {
          return static_cast<long double>(held);
        } else {
          return std::nullopt;
        }
      },
      number.held());
}

Effect effect_of_bound(std::string_view keyword, const json::Node& before,
                       const json::Node& after) {
  const bool is_lower = holds(lower, keyword);
  const auto from = number_of(before);
  const auto to = number_of(after);
  if ((!is_lower && !holds(upper, keyword)) || !from || !to) return Effect::different;
  if (*from == *to) return Effect::same;
  return (*from < *to) == is_lower ? Effect::narrower : Effect::wider;
}

}  // namespace

Effect effect_of_limit(const Limit* before, const Limit* after) {
  const std::string_view keyword = (before != nullptr ? before : after)->keyword;
  if (!limits_values(keyword)) return Effect::words;
  if (before == nullptr) return Effect::narrower;
  if (after == nullptr) return Effect::wider;
  return effect_of_bound(keyword, before->value, after->value);
}

bool is_closing(const Limit& limit) {
  return holds(closing, limit.keyword) && limit.value.kind() == Kind::boolean &&
         !limit.value.boolean();
}

}  // namespace registry_docs::changes
