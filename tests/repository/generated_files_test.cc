#include <gtest/gtest.h>

#include <algorithm>

#include "registry_docs/registry_docs.h"
#include "support/awkward_host.h"

namespace registry_docs {
namespace {

// "PATH: NAME NAME ...", one line per file.
std::string outline(const std::vector<GeneratedFile>& files) {
  std::string text;
  for (const GeneratedFile& file : files) {
    text += file.path + ":";
    for (const auto& [name, renderer] : file.blocks) text += " " + name;
    text += "\n";
  }
  return text;
}

const std::string fixed_part = R"(src/tesmo_sorvet/setup/skill_text.py: skill-routes skill-tools
src/tesmo_sorvet/setup/config.py: rules-routes
docs/claude-instructions-template.md: rules-block
README.md: readme-tools
docs/mcp-tools.md: mcp-intro mcp-overview mcp-cli)";

TEST(GeneratedFiles, IsMadeAnewFromTheRegistry) {
  Host host = support::awkward_host();
  const std::vector<GeneratedFile> before = generated_files(host);
  const std::string params = " params:many_kinds params:plain__tool_ params:größe_suche "
                             "params:one_action";
  EXPECT_EQ(outline(before), fixed_part + params + "\n");
  host.TOOLS.push_back(std::make_shared<ToolSpec>(ToolSpec{.name = "a.b", .tier = "core"}));
  EXPECT_EQ(outline(before), fixed_part + params + "\n");
  EXPECT_EQ(outline(generated_files(host)),
            fixed_part + " params:many_kinds params:plain__tool_ params:a.b params:größe_suche "
                         "params:one_action\n");

  // A table keeps the tools that it was made from, and reads all else when it renders.
  const std::string rendered = before[4].blocks[3].second();
  host.TOOLS.clear();
  EXPECT_EQ(outline(generated_files(host)), fixed_part + "\n");
  EXPECT_EQ(before[4].blocks[3].second(), rendered);
  EXPECT_EQ(before[4].blocks[0].second(), mcp_intro_block(support::empty_host()));
}

TEST(GeneratedFiles, EncodesForTheFileThatHoldsTheBlock) {
  const Host host = support::empty_host();
  const std::vector<GeneratedFile> files = generated_files(host);
  for (const std::string text : {"a\\b", "{name}", "\\{x}", "\\|", "{{}", "\\\\", "'\"\n$1|`", ""}) {
    SCOPED_TRACE(text);
    std::string literal;
    std::string skill;
    for (const char c : text) {
      literal += c == '\\' ? "\\\\" : std::string(1, c);
      skill += std::string(c == '\\' || c == '{' || c == '}' ? 2 : 1, c);
    }
    EXPECT_EQ(files[0].encode(text), skill);
    EXPECT_EQ(files[1].encode(text), literal);
    for (std::size_t i = 2; i < files.size(); ++i) EXPECT_EQ(files[i].encode(text), text);
  }
}

}  // namespace
}  // namespace registry_docs
