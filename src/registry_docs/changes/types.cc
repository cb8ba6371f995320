#include "registry_docs/changes/types.h"

#include <algorithm>
#include <cstddef>

namespace registry_docs::changes {
namespace {

bool cover(const Types& types, const Types& others);

// The parts of a text, those between parentheses being one.
Types parts_of(std::string_view text) {
  constexpr std::string_view separator = " or ";
  Types parts;
  std::size_t depth = 0;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '(') ++depth;
    if (text[at] == ')' && depth > 0) --depth;
    if (depth > 0 || !text.substr(at).starts_with(separator)) continue;
    parts.push_back(text.substr(begin, at - begin));
    begin = at + separator.size();
  }
  parts.push_back(text.substr(begin));
  return parts;
}

// The types of an array's items.
Types items_of(std::string_view array) {
  array.remove_suffix(2);
  if (array.starts_with('(') && array.ends_with(')')) {
    return parts_of(array.substr(1, array.size() - 2));
  }
  return {array};
}

bool covers(std::string_view type, std::string_view other) {
  if (type == "any" || type == other) return true;
  if (type == "number") return other == "integer";
  return type.ends_with("[]") && other.ends_with("[]") &&
         cover(items_of(type), items_of(other));
}

bool cover(const Types& types, const Types& others) {
  return std::ranges::all_of(others, [&types](std::string_view other) {
    return std::ranges::any_of(types,
                               [other](std::string_view type) { return covers(type, other); });
  });
}

}  // namespace

Effect effect_of_types(const Types& before, const Types& after) {
  const bool is_no_less = cover(after, before);
  const bool is_no_more = cover(before, after);
  if (is_no_less && is_no_more) return Effect::words;
  if (is_no_less) return Effect::wider;
  return is_no_more ? Effect::narrower : Effect::different;
}

bool are_same_types(const Types& left, const Types& right) {
  return std::ranges::is_permutation(left, right);
}

}  // namespace registry_docs::changes
