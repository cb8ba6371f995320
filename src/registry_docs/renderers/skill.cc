#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "text/join.h"

namespace registry_docs {

std::string skill_tools_block(const Host& host) {
  const auto& command = host.PRODUCT.command;
  markdown::Table table({"Tool", "Actions", "Use for"},
                        "## Tool reference (" + std::to_string(host.TOOLS.size()) + " tools" +
                            (command ? "; MCP name = CLI `" + *command + " <tool>`" : "") +
                            ")\n\n");
  for (const auto& tool : ordered_tools(host)) {
    table.row()
        .code(tool->name)
        .plain([&](std::string& to) { renderers::append_actions(to, *tool, "*(one call)*"); })
        .cell(tool->mcp_text);
  }
  return std::move(table).text();
}

std::string skill_routes_block(const Host& host) {
  using Framework = decltype(host.ENDPOINT_FRAMEWORKS)::value_type;
  return host.skill_table(
      {{"frameworks", text::join(host.ENDPOINT_FRAMEWORKS, ", ", &Framework::second)}});
}

}  // namespace registry_docs
