#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "text/code_point.h"

namespace registry_docs {

std::string readme_tools_block(const Host& host) {
  markdown::Table table(
      {"Tier", "Tool", "Actions", "Purpose"},
      std::to_string(host.TOOLS.size()) + " tools for " + host.PRODUCT.purpose + ", " +
          renderers::tier_counts(host) +
          ". A tool with actions takes an `action` parameter that selects one.\n\n");
  for (const auto& tool : ordered_tools(host)) {
    table.row()
        .plain("**" + text::capitalised(tool->tier) + "**")
        .code(tool->name)
        .plain([&](std::string& to) { renderers::append_actions(to, *tool, renderers::NONE); })
        .cell(tool->summary);
  }
  return std::move(table).text();
}

}  // namespace registry_docs
