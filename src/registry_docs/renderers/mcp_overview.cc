#include <utility>

#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "text/code_point.h"
#include "text/join.h"

namespace registry_docs {
namespace {

void append_tier(std::string& to, const std::string& tier, const renderers::Tools& tools) {
  to +=
      "\n- **" + text::capitalised(tier) + "** (" + std::to_string(tools.size()) + " tools): ";
  text::append_joined(to, tools, ", ",
                      [&to](const auto& tool) { markdown::append_code(to, tool->name); });
}

void append_tiers(std::string& to, const Host& host) {
  to += "\n\n**Tiers:**\n";
  const std::vector<renderers::Tools> tiers = renderers::tier_tools(host);
  for (std::size_t rank = 0; rank < tiers.size(); ++rank) {
    append_tier(to, host.TIERS[rank], tiers[rank]);
  }
}

}  // namespace

std::string mcp_overview_block(const Host& host) {
  markdown::Table table({"#", "Tool", "Actions", "Tier", "Purpose"});
  std::size_t number = 0;
  for (const auto& tool : ordered_tools(host)) {
    table.row()
        .plain(std::to_string(++number))
        .code(tool->name)
        .plain([&](std::string& to) { renderers::append_actions(to, *tool, renderers::NONE); })
        .plain(text::capitalised(tool->tier))
        .cell(tool->summary);
  }
  table.below([&host](std::string& to) { append_tiers(to, host); });
  return std::move(table).text();
}

}  // namespace registry_docs
