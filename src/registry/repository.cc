#include "registry/repository.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "registry/documents.h"
#include "registry/members.h"
#include "registry/product.h"
#include "registry_docs/text.h"
#include "text/ascii.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

// What may be said of any server's lists.
constexpr std::array<std::string_view, 6> arrangement = {"server", "snapshot", "tools",
                                                         "order",  "groups",   "group_by"};

// The first host's registry has none of the general form's members.
bool is_first_hosts(const Node& registry) {
  constexpr std::array<std::string_view, 5> general = {"product", "files", "server", "servers",
                                                       "mcpServers"};
  const auto found = registry.find_each(general);
  return std::ranges::none_of(found, [](const MaybeNode& each) { return each.has_value(); });
}

std::vector<std::string_view> with(std::span<const std::string_view> names,
                                   std::initializer_list<std::string_view> more) {
  std::vector<std::string_view> all(names.begin(), names.end());
  all.insert(all.end(), more);
  return all;
}

void require_members_of_document(const Node& registry) {
  if (const MaybeNode pasted = registry.find("mcpServers")) {
    pasted->refuse(R"("servers" as its name here)", R"("mcpServers")");
  }
  require_known_members(
      registry,
      with(arrangement, {"servers", "product", "files", "claims", "tiers", "routes",
                         "endpoint_frameworks", "$schema", "serverInfo", "instructions",
                         "prompts", "resources", "resourceTemplates", "nextCursor", "_meta"}));
}

// A name that begins the names of blocks.
void require_name(std::string_view name, const Node& declared) {
  const auto is_of_names = [](char c) {
    return text::is_letter_or_digit(c) || c == '_' || c == '-';
  };
  if (!name.empty() && std::ranges::all_of(name, is_of_names)) return;
  declared.refuse(R"(a name of letters, numbers, "_" and "-")",
                  registry_docs::in_quotes(name));
}

std::optional<std::string> snapshot_of(const MaybeNode& declared) {
  if (!declared) return std::nullopt;
  return path_in_repository(*declared);
}

// Refuses several servers by name, as clients' files hold them, in the place of one.
void require_one_server(const Node& declared) {
  declared.for_each_member([&](std::string_view name, const Node& member) {
    const bool is_object = member.kind() == Kind::object;
    if (name == "mcpServers" || (is_object && name != "env" && member.find("command"))) {
      declared.refuse(R"("servers" in its place, which holds servers by name)",
                      registry_docs::in_quotes(registry_docs::visible(name)));
    }
  });
}

// Looks at how a server is declared, whether it will be asked or not.
void require_server(const Node& declared, const std::filesystem::path& root) {
  if (declared.kind() == Kind::string) return;  // of a file that is read when it is asked
  require_one_server(declared);
  require_known_members(declared, with(server_members(), {"url"}));
  server(declared, "", root, Variables::kept);
}

Source source_of(const Node& declared, std::string name, const std::filesystem::path& root) {
  Source source{.name = std::move(name), .declared = declared};
  source.server = declared.find("server");
  if (source.server) require_server(*source.server, root);
  source.snapshot = snapshot_of(declared.find("snapshot"));
  return source;
}

// One of several: the name of a client's entry, a server with what is said of its lists beside
// it, or what is said of them with a member "server".
Source named_source(std::string_view name, const Node& declared,
                    const std::filesystem::path& root) {
  require_name(name, declared);
  if (declared.kind() == Kind::string) {
    return {.name = std::string(name), .declared = declared, .server = declared};
  }
  std::vector<std::string_view> known = with(server_members(), {"url"});
  known.insert(known.end(), arrangement.begin(), arrangement.end());
  require_known_members(declared, known);
  Source source = source_of(declared, std::string(name), root);
  if (source.server) return source;
  server(declared, name, root, Variables::kept);
  source.server = declared;
  return source;
}

std::vector<Source> sources_of(const Node& registry, const std::filesystem::path& root) {
  const MaybeNode servers = registry.find("servers");
  if (!servers) return {source_of(registry, "", root)};
  for (const std::string_view name : arrangement) {
    const MaybeNode given = registry.find(name);
    if (given)
      given->refuse("no such member beside \"servers\", but within one of them", "one");
  }
  std::vector<Source> sources;
  servers->for_each_member([&](std::string_view name, const Node& declared) {
    sources.push_back(named_source(name, declared, root));
  });
  if (sources.empty()) servers->refuse("at least one server", "none");
  return sources;
}

std::vector<std::string> names_of(const std::vector<Source>& sources) {
  std::vector<std::string> names;
  for (const Source& source : sources) {
    if (!source.name.empty()) names.push_back(source.name);
  }
  return names;
}

}  // namespace

Repository open_repository(const std::filesystem::path& root, const Opening& opening) {
  Repository repository{.root = root,
                        .registry = opening.document
                                        ? opening.document
                                        : registry_document(root, opening.registry)};
  const Node document(*repository.registry);
  repository.is_first_host = !opening.has_answer && is_first_hosts(document);
  if (repository.is_first_host) return repository;
  require_members_of_document(document);
  repository.product = product(document);
  repository.sources = sources_of(document, root);
  if (!opening.needs_files) return repository;
  const std::vector<std::string> servers = names_of(repository.sources);
  repository.claims = claims(document, servers, root);
  if (repository.claims.empty() || document.find("files")) {
    repository.files = files(document, repository.product, servers, root);
  }
  return repository;
}

Server server_of(const Repository& repository, const Source& source) {
  return server(*source.server, source.name, repository.root, Variables::replaced);
}

}  // namespace registry
