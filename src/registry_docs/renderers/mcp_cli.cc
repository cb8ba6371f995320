#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"

namespace registry_docs {

std::string mcp_cli_block(const Host& host) {
  const std::string command = host.PRODUCT.command.value_or("");
  markdown::Table table(
      {"Tool", "CLI usage"},
      "Every parameter is an option of the same name in kebab-case (`token_budget` is "
      "`--token-budget`), an array is a comma-separated list, and a boolean is `--flag` "
      "or `--flag true|false`. `" +
          command + " <tool> --help` prints a tool's options with their full texts and `" +
          command + " --schema` prints them all as JSON Schema.\n\n");
  for (const auto& tool : ordered_tools(host)) {
    table.row().code(tool->name).plain([&](std::string& to) {
      to += '`';
      renderers::append_cli_usage(to, host, *tool);
      to += '`';
    });
  }
  return std::move(table).text();
}

}  // namespace registry_docs
