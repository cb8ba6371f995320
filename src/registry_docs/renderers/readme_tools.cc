#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text/code_point.h"

namespace registry_docs {

std::string readme_tools_block(const Host& host) {
  markdown::Table table({"Tier", "Tool", "Actions", "Purpose"});
  for (const auto& tool : ordered_tools(host)) {
    table.row()
        .plain("**" + text::capitalised(tool->tier) + "**")
        .code(tool->name)
        .plain(renderers::actions_cell(*tool, renderers::NONE))
        .cell(tool->summary);
  }
  return std::to_string(host.TOOLS.size()) + " tools for code intelligence, " +
         renderers::tier_counts(host) +
         ". A tool with actions takes an `action` parameter that selects one.\n\n" +
         table.text();
}

}  // namespace registry_docs
