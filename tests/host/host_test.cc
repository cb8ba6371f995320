#include <gtest/gtest.h>

#include <type_traits>

#include "registry/host.h"
#include "registry_docs/registry_docs.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace registry_docs {
namespace {

using Blocks = std::vector<std::string>;

static_assert(std::is_nothrow_move_constructible_v<Host>);

Blocks blocks_of(const Host& host) {
  Blocks blocks;
  for (const GeneratedFile& file : generated_files(host)) {
    for (const auto& [name, render] : file.blocks) blocks.push_back(name + render());
  }
  return blocks;
}

// Its texts are made here, and of none is a byte left when this returns.
Host made_host(const std::string& name) {
  Host host = support::empty_host();
  host.TIERS = {name + " tier"};
  const ParamSpec param{.name = name + "_param",
                        .required = true,
                        .action_defaults = {{name + "_action", name + " default"}},
                        .applies_to = {name + "_action", name + "_other"}};
  host.TOOLS = {std::make_shared<ToolSpec>(ToolSpec{.name = name + "_tool",
                                                    .tier = name + " tier",
                                                    .summary = name + " summary",
                                                    .mcp_text = name + " text",
                                                    .actions = {name + "_action"},
                                                    .action_names = {name + "_action"},
                                                    .all_params = {param}})};
  InputSchema schema{.required = std::vector<Text>{name + "_param"}};
  schema.properties.emplace().push_back({.name = name + "_param",
                                         .type = "array",
                                         .items = ItemsSchema{name + "_item"},
                                         .description = name + " description"});
  host.get_cli_schema = [schema](auto) { return std::make_shared<InputSchema>(schema); };
  return host;
}

TEST(Host, RendersTextsThatWereMadeForItWhereverItIsMoved) {
  // One name lies within a string, one on the heap.
  for (const std::string& name : {std::string(1, '7'), std::string(50, '7')}) {
    SCOPED_TRACE(name);
    Host made = made_host(name);
    const Blocks expected = blocks_of(made);
    EXPECT_EQ(
        expected.at(4),
        support::replaced("readme-tools1 tools for code intelligence, 1 # tier. A tool "
                          "with actions takes an `action` parameter that selects one.\n\n"
                          "| Tier | Tool | Actions | Purpose |\n| --- | --- | --- | --- |\n"
                          "| **# tier** | `#_tool` | `#_action` | # summary |",
                          "#", name));
    EXPECT_TRUE(expected.back().ends_with(support::replaced(
        "| `#_param` | `--#-param` | #_item[] | Yes | -- (#_action: # default) | "
        "#_action, #_other | # description. |",
        "#", name)))
        << expected.back();

    Host moved = std::move(made);
    EXPECT_EQ(blocks_of(moved), expected);
    made = support::awkward_host();
    EXPECT_EQ(blocks_of(made), blocks_of(support::awkward_host()));
    made = std::move(moved);
    EXPECT_EQ(blocks_of(made), expected);
    const Host copy = made;
    made = Host();
    EXPECT_EQ(blocks_of(copy), expected);
  }
}

TEST(Host, IsReadByItsTableInItsPlace) {
  Host host = made_host("x");
  const std::vector<GeneratedFile> table = generated_files(host);
  host = made_host("y");
  EXPECT_EQ(table.at(3).blocks.at(0).second(), readme_tools_block(made_host("y")));
}

TEST(Host, WithoutASchemaForAToolLacksAKey) {
  Host host = made_host("x");
  host.get_cli_schema = [](auto) { return nullptr; };
  EXPECT_EQ(support::message_of<MissingKeyError>([&] { blocks_of(host); }),
            "x_tool: expected the key \"inputSchema\", found none");
}

// Where each text of a record begins.
using Places = std::vector<const char*>;

void add(Places& places, const Text& text) { places.push_back(std::string_view(text).data()); }
void add(Places& places, const std::vector<Text>& texts) {
  for (const Text& text : texts) add(places, text);
}

Places places_of(const ToolSpec& tool) {
  Places places;
  for (const Text* text : {&tool.name, &tool.tier, &tool.summary, &tool.mcp_text}) {
    add(places, *text);
  }
  for (const auto* texts : {&tool.actions, &tool.action_names}) add(places, *texts);
  for (const ParamSpec& param : tool.all_params) {
    add(places, param.name);
    for (const auto& [action, value] : param.action_defaults) add(places, action);
    add(places, param.applies_to);
  }
  return places;
}

Places places_of(const InputSchema& schema) {
  Places places;
  if (schema.required) add(places, *schema.required);
  if (!schema.properties) return places;
  for (const PropertySchema& property : *schema.properties) {
    add(places, property.name);
    add(places, property.description);
    if (property.type) add(places, *property.type);
    if (property.items && property.items->type) add(places, *property.items->type);
  }
  return places;
}

// A copy of a text of its own stands elsewhere.
template <typename Record>
void expect_borrowed(const Record& record) {
  EXPECT_EQ(places_of(Record(record)), places_of(record));
}

TEST(Host, OfARegistryCopiesNoTextOfATool) {
  const std::string root = TESTS_DIRECTORY "/tesmo_sorvet/accepted";
  const std::string first = root + "/tool_registry.json";
  const support::TemporaryDirectory directory;
  const std::string general = directory.path() / "general.json";
  const std::string added = directory.path() / "added.json";
  support::write_file(general,
                      R"({"files": [{"path": "README.md", "blocks": ["readme-tools"]}],)" +
                          support::read_file(first).substr(1));
  support::write_file(added, R"({"files": [{"path": "README.md", "blocks":
      ["readme-tools"]}], "tools": [{"name": "t", "tier": "core", "summary": "s", "actions": ["a"], "params": [{"name": "p", "applies_to": ["a"],
      "action_defaults": {"a": 1}}]}]})");
  constexpr std::string_view answer =
      R"({"tools": [{"name": "t", "description": "d", "inputSchema":
      {"type": "object", "required": ["p"], "properties": {"p": {"type": ["string", "integer"]},
       "action": {"enum": ["a", "b"]}, "l": {"type": "array", "items": {"type": "string"}}}}},
      {"name": "u", "inputSchema": {"type": "object", "properties": {"action":
       {"enum": ["a", "b"]}}}}]})";
  for (const std::string& file : {first, general, added}) {
    SCOPED_TRACE(file);
    const bool has_answer = file == added;
    std::vector<std::optional<registry::Answer>> answers;
    if (has_answer) answers.push_back({{.name = "answer", .json = std::string(answer)}});
    const auto repository =
        registry::open_repository(root, {.registry = file, .has_answer = has_answer});
    const Host host = *registry::bind(repository, std::move(answers)).host;
    for (const auto& tool : host.TOOLS) {
      SCOPED_TRACE(std::string(tool->name));
      expect_borrowed(*tool);
      expect_borrowed(*host.get_cli_schema(tool->name));
    }
  }
}

}  // namespace
}  // namespace registry_docs
