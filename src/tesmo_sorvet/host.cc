#include "tesmo_sorvet/host.h"

#include <algorithm>
#include <string>
#include <utility>

#include "registry_docs/text.h"
#include "tesmo_sorvet/setup/config.h"
#include "tesmo_sorvet/tool_schemas.h"

namespace tesmo_sorvet {
namespace {

constexpr const char* config_path = "src/tesmo_sorvet/setup/config.py";

bool holds_rules_block(const registry_docs::FileDeclaration& file) {
  return std::ranges::find(file.blocks, "rules-block") != file.blocks.end();
}

}  // namespace

registry_docs::Host host_of(const std::shared_ptr<const Declarations>& declared) {
  registry_docs::Host host{.TIERS = declared->tiers.names()};
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
  host.without_markers = without_markers;
  return host;
}

void add_rules_text(registry_docs::Host& host, const std::filesystem::path& root) {
  if (std::ranges::none_of(host.FILES, holds_rules_block)) return;
  const std::filesystem::path config = root / config_path;
  host.TESMO_INSTRUCTION_CONTENT =
      instruction_content(config.string(), registry_docs::read_text(config));
}

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::shared_ptr<json::Document>& document) {
  const json::Node registry(*document);
  Tiers tiers(registry);
  Tools found = tools(registry, tiers);
  registry_docs::Host host = host_of(
      std::make_shared<const Declarations>(Declarations{{document},
                                                        std::move(tiers),
                                                        std::move(found),
                                                        routes(registry),
                                                        endpoint_frameworks(registry)}));
  // 0.9 of the time of 10,000 tools: the files take its room.
  document->keep_texts_only();
  add_rules_text(host, root);
  return host;
}

}  // namespace tesmo_sorvet
