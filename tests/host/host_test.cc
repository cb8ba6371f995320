#include <gtest/gtest.h>

#include "registry/host.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace registry_docs {
namespace {

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
  const std::string answer = directory.path() / "answer.json";
  support::write_file(general, "{\"product\": {}," + support::read_file(first).substr(1));
  support::write_file(added, R"({"tools": [{"name": "t", "tier": "core", "summary": "s",
      "actions": ["a"], "params": [{"name": "p", "applies_to": ["a"],
      "action_defaults": {"a": 1}}]}]})");
  support::write_file(answer, R"({"tools": [{"name": "t", "description": "d", "inputSchema":
      {"type": "object", "required": ["p"], "properties": {"p": {"type": ["string", "integer"]},
       "action": {"enum": ["a", "b"]}, "l": {"type": "array", "items": {"type": "string"}}}}},
      {"name": "u", "inputSchema": {"type": "object", "properties": {"action":
       {"enum": ["a", "b"]}}}}]})");
  for (const registry::Sources& sources : {registry::Sources{.registry = first},
                                           {.registry = general},
                                           {.registry = added, .tools = answer}}) {
    SCOPED_TRACE(*sources.registry);
    const Host host = registry::bind_host(root, sources);
    for (const auto& tool : host.TOOLS) {
      SCOPED_TRACE(std::string(tool->name));
      expect_borrowed(*tool);
      expect_borrowed(*host.get_cli_schema(tool->name));
    }
  }
}

}  // namespace
}  // namespace registry_docs
