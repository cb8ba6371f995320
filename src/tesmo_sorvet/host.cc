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

// What the registry declares. The host's records lie in here, and borrow from the document.
struct Declarations {
  Declarations(const std::filesystem::path& root, const std::optional<std::string>& registry)
      : document(registry_document(root, registry)) {
    document.keep_texts_only();  // 0.9 of the time of 10,000 tools: the files take its room
  }

  Document document;
  const std::vector<std::string> tiers = tesmo_sorvet::tiers(Node(document));
  const Tools tools = tesmo_sorvet::tools(Node(document), tiers);
  const std::vector<Route> routes = tesmo_sorvet::routes(Node(document));
  const Frameworks frameworks = endpoint_frameworks(Node(document));
};

}  // namespace

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry) {
  const auto declared = std::make_shared<const Declarations>(root, registry);
  registry_docs::Host host{.TIERS = declared->tiers};
  host.TOOLS.reserve(declared->tools.in_order.size());
  for (const Tool& tool : declared->tools.in_order) {
    host.TOOLS.emplace_back(declared, &tool.spec);
  }
  host.get_cli_schema = [declared](std::string_view name) {
    const Tools& tools = declared->tools;
    return std::shared_ptr<const registry_docs::InputSchema>(
        declared, &tools.in_order.at(tools.places.at(name)).schema);
  };
  host.snake_to_kebab = snake_to_kebab;
  host.rules_table = [declared] { return rules_table(declared->routes); };
  host.skill_table = [declared](const registry_docs::Facts& facts) {
    return skill_table(declared->routes, facts);
  };
  host.ENDPOINT_FRAMEWORKS = declared->frameworks;
  const std::filesystem::path config = root / config_path;
  host.TESMO_INSTRUCTION_CONTENT =
      instruction_content(config.string(), registry_docs::read_text(config));
  host.without_markers = without_markers;
  return host;
}

}  // namespace tesmo_sorvet
