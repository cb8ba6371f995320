#include "registry_docs/registry_docs.h"
#include "registry_docs/repository/encode.h"

namespace registry_docs {
namespace {

// A renderer of the block that one of the public operations makes for the host.
Renderer bound(const Host& host, std::string (*block)(const Host&)) {
  return [&host, block] { return block(host); };
}

// Holds the tool's record itself and never looks it up again.
Renderer params_renderer(const Host& host, std::shared_ptr<const ToolSpec> tool) {
  return [&host, tool = std::move(tool)] { return mcp_params_block(host, *tool); };
}

GeneratedFile mcp_reference(const Host& host) {
  GeneratedFile file{.path = "docs/mcp-tools.md",
                     .blocks = {{"mcp-intro", bound(host, mcp_intro_block)},
                                {"mcp-overview", bound(host, mcp_overview_block)},
                                {"mcp-cli", bound(host, mcp_cli_block)}}};
  auto tools = ordered_tools(host);
  file.blocks.reserve(file.blocks.size() + tools.size());
  for (auto& tool : tools) {
    std::string name = "params:" + std::string(tool->name);
    file.blocks.emplace_back(std::move(name), params_renderer(host, std::move(tool)));
  }
  return file;
}

}  // namespace

std::vector<GeneratedFile> generated_files(const Host& host) {
  std::vector<GeneratedFile> files;
  files.push_back({.path = "src/tesmo_sorvet/setup/skill_text.py",
                   .blocks = {{"skill-routes", bound(host, skill_routes_block)},
                              {"skill-tools", bound(host, skill_tools_block)}},
                   .encode = repository::skill_text});
  files.push_back({.path = "src/tesmo_sorvet/setup/config.py",
                   .blocks = {{"rules-routes", [&host] { return host.rules_table(); }}},
                   .encode = repository::literal_text});
  files.push_back({.path = "docs/claude-instructions-template.md",
                   .blocks = {{"rules-block", bound(host, rules_block)}}});
  files.push_back(
      {.path = "README.md", .blocks = {{"readme-tools", bound(host, readme_tools_block)}}});
  files.push_back(mcp_reference(host));
  return files;
}

}  // namespace registry_docs
