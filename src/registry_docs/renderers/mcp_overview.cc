#include <utility>

#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text/code_point.h"
#include "registry_docs/text/join.h"

namespace registry_docs {
namespace {

std::string tier_line(const std::string& tier, const renderers::Tools& tools) {
  return "- **" + text::capitalised(tier) + "** (" + std::to_string(tools.size()) +
         " tools): " +
         text::join(tools, ", ", [](const auto& tool) { return markdown::code(tool->name); });
}

}  // namespace

std::string mcp_overview_block(const Host& host) {
  markdown::Table table({"#", "Tool", "Actions", "Tier", "Purpose"});
  std::size_t number = 0;
  for (const auto& tool : ordered_tools(host)) {
    table.row()
        .plain(std::to_string(++number))
        .code(tool->name)
        .plain([&](markdown::Builder& to) {
          renderers::append_actions(to, *tool, renderers::NONE);
        })
        .plain(text::capitalised(tool->tier))
        .cell(tool->summary);
  }
  std::string block = std::move(table).text() + "\n\n**Tiers:**\n";
  const std::vector<renderers::Tools> tiers = renderers::tier_tools(host);
  for (std::size_t rank = 0; rank < tiers.size(); ++rank) {
    block += "\n" + tier_line(host.TIERS[rank], tiers[rank]);
  }
  return block;
}

}  // namespace registry_docs
