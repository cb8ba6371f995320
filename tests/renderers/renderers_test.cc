#include <gtest/gtest.h>

#include <cstdlib>

#include "registry/host.h"
#include "registry_docs/registry_docs.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace registry_docs {
namespace {

using support::message_of;

// Compares every block of a host with the file of its name. With UPDATE_GOLDEN=1 in the
// environment the files are written instead, and must then be read before they are kept.
void expect_golden(const Host& host, const std::string& directory) {
  const char* const update = std::getenv("UPDATE_GOLDEN");
  for (const GeneratedFile& file : generated_files(host)) {
    for (const auto& [name, renderer] : file.blocks) {
      SCOPED_TRACE(name);
      const std::string golden =
          TESTS_DIRECTORY "/" + directory + support::replaced(name, ":", "-") + ".md";
      if (update != nullptr && *update == '1') support::write_file(golden, renderer());
      EXPECT_EQ(renderer(), support::read_file(golden));
    }
  }
}

TEST(Renderers, MakeTheBlocksThatWereRead) {
  const std::string root = TESTS_DIRECTORY "/tesmo_sorvet/accepted/";
  expect_golden(support::awkward_host(), "renderers/golden/awkward/");
  expect_golden(support::empty_host(), "renderers/golden/empty/");
  expect_golden(registry::bind_host(root, root + "tool_registry.json"),
                "tesmo_sorvet/golden/");
}

TEST(McpParamsBlock, RefusesASchemaThatLacksAKeyOrNamesOtherParameters) {
  using Names = std::vector<Text>;
  using Properties = std::vector<PropertySchema>;
  const PropertySchema a{"a", "string"};
  const PropertySchema b{"b", "array"};
  const std::string other = "x_y: the CLI schema and the registry name different parameters";
  const std::string no_type = "x_y: the schema of b: expected the key \"type\", found none";
  const std::pair<std::string, InputSchema> rows[] = {
      {other, {Properties{b, a}, Names{}}},
      {other, {Properties{a}, Names{}}},
      {other, {Properties{a, b, {"c", "string"}}, Names{}}},
      {other, {Properties{a, a}, Names{}}},
      {other, {Properties{a, {"B", {}}}, {}}},
      {"x_y: expected the key \"properties\", found none", {{}, Names{}}},
      {"x_y: expected the key \"required\", found none", {Properties{a, b}, {}}},
      {no_type, {Properties{a, {"b", {}}}, Names{}}},
      {no_type, {Properties{a, {"b", "array", ItemsSchema{}}}, Names{}}},
  };
  const ToolSpec tool{.name = "x_y", .all_params = {{"a"}, {"b"}}};
  Host host = support::empty_host();
  for (const auto& [message, schema] : rows) {
    const auto shared = std::make_shared<InputSchema>(schema);
    host.get_cli_schema = [shared](auto) { return shared; };
    EXPECT_EQ(message_of<std::runtime_error>([&] { mcp_params_block(host, tool); }), message);
  }
}

TEST(OrderedTools, RefusesATierThatIsNoneOfTheHosts) {
  Host host = support::awkward_host();
  host.TOOLS.push_back(std::make_shared<ToolSpec>(ToolSpec{.name = "stray", .tier = "Core"}));
  const std::string message = message_of<ValueError>([&] { ordered_tools(host); });
  EXPECT_TRUE(message.starts_with("stray: ")) << message;
  for (const auto render :
       {readme_tools_block, mcp_overview_block, mcp_cli_block, skill_tools_block}) {
    EXPECT_EQ(message_of<ValueError>([&] { render(host); }), message);
  }
  EXPECT_EQ(message_of<ValueError>([&] { stale_blocks(host, "/absent"); }), message);
  EXPECT_EQ(message_of<ValueError>([&] { write_blocks(host, "/absent"); }), message);
  EXPECT_TRUE(mcp_intro_block(host).starts_with(
      "Complete reference for the **5 MCP tools** provided by Tesmo Sorvet, 2 core and 0 NONE "
      "yet and 2 éTÉ X.\n"));
}

}  // namespace
}  // namespace registry_docs
