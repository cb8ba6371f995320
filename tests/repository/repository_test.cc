#include <gtest/gtest.h>

#include <algorithm>

#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace registry_docs {
namespace {

using support::markers;
using support::message_of;
using support::read_file;
using Lines = std::vector<std::string>;

const Lines paths = {"src/tesmo_sorvet/setup/skill_text.py",
                     "src/tesmo_sorvet/setup/config.py",
                     "docs/claude-instructions-template.md", "README.md", "docs/mcp-tools.md"};

const std::string stale = ": blocks out of date: ";

// The problem lines of the first files, with the names of their blocks.
Lines lines(Lines names) {
  for (std::size_t i = 0; i < names.size(); ++i) names[i].insert(0, paths[i] + stale);
  return names;
}

Lines outline(const std::vector<GeneratedFile>& files) {
  Lines names;
  for (const GeneratedFile& file : files) {
    names.emplace_back();
    for (const auto& [name, renderer] : file.blocks) names.back() += name + " ";
  }
  return names;
}

TEST(GeneratedFiles, IsMadeAnewFromTheRegistry) {
  Host host = support::awkward_host();
  const auto outline_with = [](const std::string& params) {
    return Lines{"skill-routes skill-tools ", "rules-routes ", "rules-block ", "readme-tools ",
                 "mcp-intro mcp-overview mcp-cli " + params};
  };
  const std::vector<GeneratedFile> before = generated_files(host);
  const std::string core = "params:many_kinds params:plain__tool_ ";
  const std::string late = "params:größe_suche params:one_action ";
  host.TOOLS.push_back(std::make_shared<ToolSpec>(ToolSpec{.name = "a.b", .tier = "core"}));
  EXPECT_EQ(outline(before), outline_with(core + late));
  EXPECT_EQ(outline(generated_files(host)), outline_with(core + "params:a.b " + late));

  // A table keeps the tools that it was made from, and reads all else when it renders.
  const std::string rendered = before[4].blocks[3].second();
  host.TOOLS.clear();
  EXPECT_EQ(outline(generated_files(host)), outline_with(""));
  EXPECT_EQ(before[4].blocks[3].second(), rendered);
  EXPECT_EQ(before[4].blocks[0].second(), mcp_intro_block(support::empty_host()));
}

// A repository of the awkward host, its blocks still empty.
class Repository : public ::testing::Test {
 protected:
  Repository() { support::lay_out(host, root); }

  // The check's lines, which the reports hold too.
  Lines checked() {
    Lines problems;
    for (const FileReport& file : report(host, root)) {
      if (!file.problem.empty()) problems.push_back(file.problem);
    }
    EXPECT_EQ(stale_blocks(host, root), problems);
    return problems;
  }

  template <typename Failure>
  void expect_refusal(const std::string& message) {
    EXPECT_EQ(message_of<Failure>([this] { stale_blocks(host, root); }), message);
    EXPECT_EQ(message_of<Failure>([this] { write_blocks(host, root); }), message);
  }

  support::TemporaryDirectory directory;
  const std::filesystem::path root = directory.path();
  Host host = support::awkward_host();
};

TEST_F(Repository, IsNamedInTableOrderAndItsBlocksInTextOrder) {
  const std::string params =
      "params:one_action, params:größe_suche, params:plain__tool_, params:many_kinds, ";
  EXPECT_EQ(checked(), lines({"skill-tools, skill-routes", "rules-routes", "rules-block",
                              "readme-tools", params + "mcp-cli, mcp-overview, mcp-intro"}));
  EXPECT_EQ(write_blocks(host, root), paths);
  EXPECT_EQ(checked(), Lines{});
  EXPECT_EQ(write_blocks(host, root), Lines{});
  host.ENDPOINT_FRAMEWORKS.clear();
  EXPECT_EQ(checked(), lines({"skill-routes"}));
}

TEST_F(Repository, ReportsAValueErrorOfARendererAndPassesOnEveryOtherFailure) {
  const std::string before = read_file(root / paths[0]);
  host.rules_table = []() -> std::string { throw ValueError("routes: none"); };
  const Lines found = checked();
  EXPECT_EQ(std::ranges::count(found, "routes: none"), 2);
  EXPECT_EQ(found.size(), paths.size());
  const FileReport failed = report(host, root)[1];
  EXPECT_EQ(failed.state, FileState::failed);
  EXPECT_EQ(failed.blocks.front().state, BlockState::failed);
  EXPECT_EQ(message_of<ValueError>([this] { write_blocks(host, root); }), "routes: none");
  host.rules_table = []() -> std::string { throw std::domain_error("as it was"); };
  expect_refusal<std::domain_error>("as it was");
  host.rules_table = []() -> std::string { return {}; };
  host.get_cli_schema = [](std::string_view) { return std::make_shared<InputSchema>(); };
  expect_refusal<MissingKeyError>("one_action: expected the key \"properties\", found none");
  EXPECT_EQ(read_file(root / paths[0]), before);
}

TEST_F(Repository, ReportsATextThatDiffersThoughNoBlockDoes) {
  write_blocks(host, root);
  support::write_file(root / paths[1], markers("[rules-routes]\n1\n[/rules-routes]"));
  host.rules_table = [] { return markers("1\n[/rules-routes][rules-routes]\n1"); };
  EXPECT_EQ(checked().front(), paths[1] + stale);
}

}  // namespace
}  // namespace registry_docs
