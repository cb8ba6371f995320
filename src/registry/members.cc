#include "registry/members.h"

#include <algorithm>
#include <string>

#include "registry_docs/text.h"
#include "text/join.h"
#include "text/nearest.h"

namespace registry {

void require_known_members(const json::Node& object, std::span<const std::string_view> names) {
  object.for_each_member([&](std::string_view name, const json::Node&) {
    if (std::ranges::find(names, name) != names.end()) return;
    const std::string_view meant = text::nearest(name, names);
    std::string found = registry_docs::in_quotes(registry_docs::visible(name));
    if (!meant.empty()) found += ", perhaps " + registry_docs::in_quotes(meant);
    object.refuse("no other members than " + text::join(names, ", "), found);
  });
}

}  // namespace registry
