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

std::optional<std::string> server_among(const json::Node& declared,
                                        const std::vector<std::string>& servers) {
  const json::MaybeNode given = declared.find("server");
  if (!given) return std::nullopt;
  const std::string name(given->string());
  if (std::ranges::find(servers, name) != servers.end()) return name;
  given->refuse(servers.empty() ? "no server to be named where there is one"
                                : "one of the servers " + text::join(servers, ", "),
                registry_docs::in_quotes(registry_docs::visible(name)));
}

}  // namespace registry
