#include <algorithm>
#include <array>

#include "registry_docs/registry_docs.h"
#include "registry_docs/repository/encode.h"

namespace registry_docs {
namespace {

using Block = std::pair<std::string, Renderer>;

std::string rules_routes_block(const Host& host) { return host.rules_table(); }

// The blocks that stand for themselves, by name.
struct NamedBlock {
  std::string_view name;
  std::string (*render)(const Host&);
};
constexpr std::array<NamedBlock, 8> named_blocks = {{{"skill-routes", skill_routes_block},
                                                     {"skill-tools", skill_tools_block},
                                                     {"rules-routes", rules_routes_block},
                                                     {"rules-block", rules_block},
                                                     {"readme-tools", readme_tools_block},
                                                     {"mcp-intro", mcp_intro_block},
                                                     {"mcp-overview", mcp_overview_block},
                                                     {"mcp-cli", mcp_cli_block}}};

void add_params(std::vector<Block>& blocks, const Host& host) {
  auto tools = ordered_tools(host);
  blocks.reserve(blocks.size() + tools.size());
  for (auto& tool : tools) {
    std::string name = "params:" + std::string(tool->name);
    // Holds the tool's record itself and never looks it up again.
    blocks.emplace_back(std::move(name), [&host, tool = std::move(tool)] {
      return mcp_params_block(host, *tool);
    });
  }
}

void add_block(GeneratedFile& file, const Host& host, const std::string& name) {
  if (name == all_params) return add_params(file.blocks, host);
  const auto* const found = std::ranges::find(named_blocks, name, &NamedBlock::name);
  if (found == named_blocks.end()) {
    throw ValueError(file.path + ": expected the name of a block, found \"" + name + "\"");
  }
  file.blocks.emplace_back(name, [&host, render = found->render] { return render(host); });
}

}  // namespace

std::vector<FileDeclaration> default_files() {
  return {
      {"src/tesmo_sorvet/setup/skill_text.py",
       {"skill-routes", "skill-tools"},
       Encoding::template_},
      {"src/tesmo_sorvet/setup/config.py", {"rules-routes"}, Encoding::literal},
      {"docs/claude-instructions-template.md", {"rules-block"}},
      {"README.md", {"readme-tools"}},
      {"docs/mcp-tools.md", {"mcp-intro", "mcp-overview", "mcp-cli", std::string(all_params)}},
  };
}

std::vector<std::string_view> block_choices() {
  std::vector<std::string_view> names;
  names.reserve(named_blocks.size() + 1);
  for (const NamedBlock& block : named_blocks) names.push_back(block.name);
  names.push_back(all_params);
  return names;
}

GeneratedFile generated_file(const Host& host, const FileDeclaration& declared) {
  GeneratedFile file{.path = declared.path};
  if (declared.encoding == Encoding::literal) file.encode = repository::literal_text;
  if (declared.encoding == Encoding::template_) file.encode = repository::skill_text;
  for (const std::string& name : declared.blocks) add_block(file, host, name);
  return file;
}

std::vector<GeneratedFile> generated_files(const Host& host) {
  std::vector<GeneratedFile> files;
  files.reserve(host.FILES.size());
  for (const FileDeclaration& file : host.FILES) files.push_back(generated_file(host, file));
  return files;
}

}  // namespace registry_docs
