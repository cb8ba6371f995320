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
  std::vector<std::vector<std::string>> rows;
  for (const auto& tool : ordered_tools(host)) {
    rows.push_back({std::to_string(rows.size() + 1), markdown::code(tool->name),
                    renderers::actions_cell(*tool, renderers::NONE),
                    text::capitalised(tool->tier), markdown::cell(tool->summary)});
  }
  std::vector<std::string> lines =
      markdown::table({"#", "Tool", "Actions", "Tier", "Purpose"}, rows);
  lines.insert(lines.end(), {"", "**Tiers:**", ""});
  const std::vector<renderers::Tools> tiers = renderers::tier_tools(host);
  for (std::size_t rank = 0; rank < tiers.size(); ++rank) {
    lines.push_back(tier_line(host.TIERS[rank], tiers[rank]));
  }
  return text::join(lines, "\n");
}

}  // namespace registry_docs
