#include <gtest/gtest.h>

#include <sstream>

#include "registry/faults.h"
#include "registry/tools.h"
#include "registry_docs/registry_docs.h"
#include "support/temporary_directory.h"
#include "support/text.h"
#include "tesmo_sorvet/tool_schemas.h"

namespace registry {
namespace {

namespace support = registry_docs::support;

// The parameter table of the one tool that a server answers with and what could not be read of
// it, or why it is refused.
std::string shown(const std::string& members) try {
  const json::Document document("s", R"({"tools": [{"name": "t", )" + members + "}]}");
  const json::Document none("r", "{}");
  const tesmo_sorvet::Tiers tiers{json::Node(none)};
  std::vector<json_schema::Fault> faults;
  const tesmo_sorvet::Tools tools = answered_tools(json::Node(document), tiers, faults);
  registry_docs::Host host{.snake_to_kebab = tesmo_sorvet::snake_to_kebab};
  host.get_cli_schema = [&](auto) {
    return std::make_shared<registry_docs::InputSchema>(tools.in_order.front().schema);
  };
  std::string text = mcp_params_block(host, tools.in_order.front().spec);
  for (const std::string& line : warnings_of(faults)) text += " ! " + line;
  return text;
} catch (const registry_docs::InputError& error) {
  return error.what();
}

TEST(InputSchema, IsShownAsTheTableSays) {
  std::istringstream file(support::read_file(TESTS_DIRECTORY "/json_schema/json_schemas.txt"));
  std::string members;
  std::getline(file, members);
  for (std::string line; std::getline(file, line);) {
    const std::size_t arrow = line.find(" => ");
    const std::string all = shown(support::replaced(members, "SCHEMA", line.substr(0, arrow)));
    const std::size_t row = all.rfind("\n| `p` | `--p` | ");
    EXPECT_EQ(row == std::string::npos ? all : all.substr(row + 17), line.substr(arrow + 4))
        << line;
  }
}

TEST(InputSchema, IsCutWhereReferencesMakeMuchOfLittle) {
  const auto message_for = [](int count, const std::string& link) {
    std::string links;
    for (int i = 1; i <= count; ++i) {
      const std::string next = R"({"$ref": "#/)" + std::to_string(i) + "\"}";
      links += ", \"" + std::to_string(i - 1) + "\": " + support::replaced(link, "NEXT", next);
    }
    const std::string message =
        shown(R"("inputSchema": {"type": "object", "properties": {"p": {"$ref": "#/0"}})" +
              links + ", \"" + std::to_string(count) + "\": true}");
    return message.substr(message.find("expected"), 40);
  };
  EXPECT_EQ(message_for(300, "NEXT"), "expected at most 256 schemas within one ");
  EXPECT_EQ(message_for(60, R"({"anyOf": [NEXT, {"type": "array", "items": NEXT}]})"),
            "expected a type that takes at most 1000 ");
}

TEST(ServersAnswer, IsReadForNamesDescriptionsAndInputSchemasAlone) {
  const std::string none = shown(R"("inputSchema": {"type": "object"})");
  EXPECT_EQ(shown(R"("actions": 1, "description": null)"), none);
  EXPECT_EQ(shown(R"("inputSchema": {"$schema": "a"})"), none);
  const std::string block =
      shown(R"("tier": 1, "summary": 1, "actions": 1, "params": 1, "inputSchema":
      {"type": "object", "properties": {"action": {"$ref": "#/A"}}, "A": {"enum": ["get", "set"]}})");
  EXPECT_TRUE(block.starts_with("**Actions:** `get` | `set`\n")) << block;
}

}  // namespace
}  // namespace registry
