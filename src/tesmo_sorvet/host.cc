#include "tesmo_sorvet/host.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/setup/config.h"
#include "tesmo_sorvet/tool_registry.h"
#include "tesmo_sorvet/tool_routes.h"
#include "tesmo_sorvet/tool_schemas.h"
#include "tesmo_sorvet/workers/api_endpoints.h"

namespace tesmo_sorvet {
namespace {

constexpr const char* config_path = "src/tesmo_sorvet/setup/config.py";

std::string standard_input() {
  std::string bytes;
  std::array<char, 65536> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stdin)) {
    bytes.append(buffer.data(), count);
  }
  if (std::ferror(stdin) != 0) {
    throw registry_docs::FileError("-", {errno, std::generic_category()});
  }
  return bytes;
}

// Only a registry that was named may be a pipe: the one in a repository is not waited on.
Document registry_document(const std::filesystem::path& root,
                           const std::optional<std::string>& registry) {
  using registry_docs::FileKind;
  if (registry == "-") return {*registry, standard_input()};
  if (registry) {
    return {*registry, registry_docs::read_bytes(*registry, FileKind::regular_or_pipe)};
  }
  const std::filesystem::path path = root / registry_path;
  return {path.string(), registry_docs::read_bytes(path, FileKind::regular)};
}

}  // namespace

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry) {
  const Document document = registry_document(root, registry);
  const Node declared(document);
  registry_docs::Host host{.TIERS = tiers(declared)};
  host.TOOLS = tools(declared, host.TIERS);
  const auto schemas_by_name = std::make_shared<const Schemas>(schemas(declared));
  host.get_cli_schema = [schemas_by_name](std::string_view name) {
    return schemas_by_name->at(std::string(name));
  };
  host.snake_to_kebab = snake_to_kebab;
  const auto shared_routes = std::make_shared<const std::vector<Route>>(routes(declared));
  host.rules_table = [shared_routes] { return rules_table(*shared_routes); };
  host.skill_table = [shared_routes](const registry_docs::Facts& facts) {
    return skill_table(*shared_routes, facts);
  };
  host.ENDPOINT_FRAMEWORKS = endpoint_frameworks(declared);
  const std::filesystem::path config = root / config_path;
  host.TESMO_INSTRUCTION_CONTENT =
      instruction_content(config.string(), registry_docs::read_text(config));
  host.without_markers = without_markers;
  return host;
}

}  // namespace tesmo_sorvet
