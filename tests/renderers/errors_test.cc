#include <gtest/gtest.h>

#include "registry_docs/registry_docs.h"
#include "support/awkward_host.h"
#include "support/text.h"

namespace registry_docs {
namespace {

using Names = std::vector<std::string>;
using Properties = std::vector<PropertySchema>;

TEST(McpParamsBlock, RefusesASchemaThatLacksAKeyOrNamesOtherParameters) {
  const PropertySchema a{"a", "string"};
  const PropertySchema b{"b", "array"};
  const PropertySchema untyped{"b"};
  const PropertySchema untyped_items{"b", "array", ItemsSchema{}};
  const struct {
    const char* name;
    InputSchema schema;
    const char* missing;  // the key; none: the parameters differ
  } rows[] = {
      {"another order", {Properties{b, a}, Names{}}, ""},
      {"one less", {Properties{a}, Names{}}, ""},
      {"one more", {Properties{a, b, {"c", "string"}}, Names{}}, ""},
      {"one twice", {Properties{a, a}, Names{}}, ""},
      {"another one, and nothing required", {Properties{a, {"B", {}}}, {}}, ""},
      {"no properties", {{}, Names{}}, "properties"},
      {"nothing required", {Properties{a, b}, {}}, "required"},
      {"no type", {Properties{a, untyped}, Names{}}, "type"},
      {"no type of the items", {Properties{a, untyped_items}, Names{}}, "type"},
  };
  const ToolSpec tool{.name = "x_y", .all_params = {{"a"}, {"b"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Host host = support::empty_host();
    host.get_cli_schema = [&row](std::string_view name) {
      EXPECT_EQ(name, "x_y");
      return row.schema;
    };
    try {
      ADD_FAILURE() << mcp_params_block(host, tool);
    } catch (const ValueError& error) {
      EXPECT_STREQ(row.missing, "");
      EXPECT_STREQ(error.what(),
                   "x_y: the CLI schema and the registry name different parameters");
    } catch (const MissingKeyError& error) {
      EXPECT_EQ(error.key(), row.missing);
    }
  }
}

TEST(OrderedTools, RefusesATierThatIsNoneOfTheHosts) {
  Host host = support::awkward_host();
  host.TOOLS.push_back(std::make_shared<ToolSpec>(ToolSpec{.name = "stray", .tier = "Core"}));
  const std::function<void()> operations[] = {
      [&] { ordered_tools(host); },     [&] { generated_files(host); },
      [&] { readme_tools_block(host); }, [&] { mcp_overview_block(host); },
      [&] { mcp_cli_block(host); },      [&] { skill_tools_block(host); },
      [&] { stale_blocks(host, "/nowhere"); }, [&] { write_blocks(host, "/nowhere"); }};
  for (const auto& operation : operations) {
    EXPECT_NE(support::message_of<ValueError>(operation).find("stray"), std::string::npos);
  }
  EXPECT_TRUE(mcp_intro_block(host).starts_with(
      "Complete reference for the **5 MCP tools** provided by Tesmo Sorvet, 2 core and 0 NONE "
      "yet and 2 éTÉ X.\n"));
}

}  // namespace
}  // namespace registry_docs
