#include "registry/catalog.h"

#include <array>
#include <span>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "json_schema/field_reader.h"
#include "registry/arrangement.h"
#include "registry/faults.h"
#include "registry_docs/catalog/entries.h"
#include "registry_docs/catalog/literals.h"
#include "registry_docs/text.h"
#include "text/sentence.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using json_schema::Fault;
using json_schema::Field;
using registry_docs::catalog::Catalog;
using registry_docs::catalog::Tool;

// A parameter that is declared by itself, in the members of "params".
Field field_of(const Node& param) {
  constexpr std::array<std::string_view, 7> names = {
      "name", "type", "items", "description", "required", "default", "values"};
  const auto [name, type, items, description, required, default_value, values] =
      param.find_each(names);
  Field field{.name = param.at("name").string(), .schema = param};
  field.path = field.name;
  field.type = type ? type->string() : "string";
  if (items) field.type = std::string(items->at("type").string()) + "[]";
  if (description) field.description = description->string();
  field.is_required = required && required->boolean();
  if (default_value && default_value->kind() != Kind::null)
    field.default_value = default_value;
  if (values) {
    values->for_each_element([&](const Node& value) { field.values.push_back(value); });
  }
  for (const std::string_view bound : {"minimum", "maximum"}) {
    const MaybeNode given = param.find(bound);
    if (given && given->kind() != Kind::null) field.limits.push_back({bound, *given});
  }
  field.limit_words = json_schema::words_of(field.limits);
  return field;
}

void read_input(const Node& entry, Tool& tool, std::vector<Fault>& faults) {
  if (const MaybeNode schema = entry.find("inputSchema")) {
    Field input = json_schema::read_input(*schema, faults);
    tool.parameters = std::move(input.fields);
    tool.notes = std::move(input.notes);
  } else if (const MaybeNode params = entry.find("params")) {
    params->for_each_element(
        [&tool](const Node& param) { tool.parameters.push_back(field_of(param)); });
  }
}

void read_output(const Node& entry, Tool& tool, std::vector<Fault>& faults) {
  const MaybeNode schema = entry.find("outputSchema");
  if (!schema) return;
  Field output = json_schema::read_output(*schema, faults);
  if (output.fields.empty() || !output.description.empty()) {
    tool.output.push_back(std::move(output));
  } else {
    tool.output = std::move(output.fields);
  }
}

void read_tools(const Node& list, Catalog& catalog, std::vector<Fault>& faults) {
  std::unordered_set<std::string_view> names;
  catalog.tools.reserve(list.size());
  list.for_each_element([&](const Node& entry) {
    Tool& tool = catalog.tools.emplace_back(registry_docs::catalog::tool_of(entry));
    if (!names.insert(tool.name).second) {
      entry.at("name").refuse("a name that no other tool has",
                              registry_docs::in_quotes(tool.name) + " again");
    }
    const std::size_t known = faults.size();
    read_input(entry, tool, faults);
    read_output(entry, tool, faults);
    name_tool(tool.name, std::span(faults).subspan(known));
    for (Field& field : tool.parameters)
      registry_docs::catalog::add_literals(field, catalog.texts);
    for (Field& field : tool.output)
      registry_docs::catalog::add_literals(field, catalog.texts);
  });
}

}  // namespace

Catalog catalog_of(const Node& registry, const MaybeNode& answer, std::vector<Fault>& faults) {
  const Node source = answer.value_or(registry);
  Catalog catalog{.server = registry_docs::catalog::server_of(source)};
  read_tools(source.at("tools"), catalog, faults);
  catalog.prompts = registry_docs::catalog::prompts_of(source);
  catalog.resources = registry_docs::catalog::resources_of(source);
  catalog.templates = registry_docs::catalog::templates_of(source);
  if (registry.kind() == Kind::object)
    arrange(registry, answer ? Tools::answered : Tools::declared, catalog);
  registry_docs::catalog::note_any(catalog);
  registry_docs::catalog::add_anchors(catalog);
  return catalog;
}

}  // namespace registry
