#include "registry_docs/layouts/refusal.h"

#include <algorithm>
#include <vector>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "text/nearest.h"

namespace registry_docs::layouts {
namespace {

// "a, b or c".
std::string alternatives(std::span<const std::string_view> names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i != 0) text += i + 1 == names.size() ? " or " : ", ";
    text += names[i];
  }
  return text;
}

void add_once(std::vector<std::string_view>& names, std::string_view name) {
  if (std::ranges::find(names, name) == names.end()) names.push_back(name);
}

}  // namespace

void refuse(const Place& place, const std::string& expected, const std::string& found) {
  throw InputError(std::string(place.name) + ":" + std::to_string(place.line) + ": expected " +
                   expected + ", found " + found);
}

void refuse_name(const Place& place, const std::string& expected, std::string_view found,
                 std::span<const std::string_view> candidates) {
  const std::string_view meant = text::nearest(found, candidates);
  refuse(place, expected,
         in_quotes(found) + (meant.empty() ? "" : ", perhaps " + in_quotes(meant)));
}

void refuse_member(const Place& place, std::string_view name,
                   std::span<const ObjectType* const> types) {
  std::vector<std::string_view> type_names;
  std::vector<std::string_view> candidates;
  for (const ObjectType* type : types) {
    add_once(type_names, type->name);
    for (const Member& member : type->members) candidates.push_back(member.name);
  }
  refuse_name(place, "a member of " + (types.empty() ? "an object" : alternatives(type_names)),
              name, candidates);
}

}  // namespace registry_docs::layouts
