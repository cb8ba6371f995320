#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text/join.h"

namespace registry_docs {

std::string skill_tools_block(const Host& host) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& tool : ordered_tools(host)) {
    rows.push_back({markdown::code(tool->name), renderers::actions_cell(*tool, "*(one call)*"),
                    markdown::cell(tool->mcp_text)});
  }
  return "## Tool reference (" + std::to_string(host.TOOLS.size()) +
         " tools; MCP name = CLI `tesmo-sorvet query <tool>`)\n\n" +
         text::join(markdown::table({"Tool", "Actions", "Use for"}, rows), "\n");
}

std::string skill_routes_block(const Host& host) {
  using Framework = decltype(host.ENDPOINT_FRAMEWORKS)::value_type;
  return host.skill_table(
      {{"frameworks", text::join(host.ENDPOINT_FRAMEWORKS, ", ", &Framework::second)}});
}

}  // namespace registry_docs
