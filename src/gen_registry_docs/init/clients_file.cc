#include "gen_registry_docs/init/clients_file.h"

#include "json/document.h"
#include "json/node.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::init {

Entries entries_of_clients_file(const std::filesystem::path& root) {
  const std::filesystem::path path = root / ".mcp.json";
  Entries entries{.place = path.string() + ": mcpServers", .own_name = {}, .all = {}};
  if (!std::filesystem::exists(path)) return entries;
  const json::Document document(
      path.string(), registry_docs::read_bytes(path, registry_docs::FileKind::regular));
  const json::MaybeNode servers = json::Node(document).find("mcpServers");
  if (!servers) return entries;
  servers->for_each_member([&](std::string_view name, const json::Node& declared) {
    if (!declared.find("command")) return;
    entries.all.push_back({.name = std::string(name),
                           .start = {.said_by = path.string(), .client = std::string(name)}});
  });
  return entries;
}

}  // namespace gen_registry_docs::init
