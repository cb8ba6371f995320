#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text/code_point.h"
#include "registry_docs/text/join.h"

namespace registry_docs {

std::string readme_tools_block(const Host& host) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& tool : ordered_tools(host)) {
    rows.push_back({"**" + text::capitalised(tool->tier) + "**", markdown::code(tool->name),
                    renderers::actions_cell(*tool, renderers::NONE),
                    markdown::cell(tool->summary)});
  }
  return std::to_string(host.TOOLS.size()) + " tools for code intelligence, " +
         renderers::tier_counts(host) +
         ". A tool with actions takes an `action` parameter that selects one.\n\n" +
         text::join(markdown::table({"Tier", "Tool", "Actions", "Purpose"}, rows), "\n");
}

}  // namespace registry_docs
