#include "tesmo_sorvet/tool_schemas.h"

#include <algorithm>
#include <array>

#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

using registry_docs::InputSchema;
using registry_docs::PropertySchema;
using registry_docs::Value;

using MaybeNode = std::optional<Node>;

void read_string(const MaybeNode& declared, std::string& text) {
  if (declared) text = declared->string();
}

void read_type(const MaybeNode& declared, std::optional<std::string>& type) {
  if (declared) type.emplace(declared->string());
}

void read_bound(const MaybeNode& declared, Value& bound) {
  if (declared) bound = declared->bound();
}

// What a parameter and a property of a schema declare alike. What a parameter must give
// may be missing from a schema, which stands as given.
void read_property(const Node& declared, PropertySchema& schema) {
  constexpr std::array<std::string_view, 5> names = {"type", "items", "description", "minimum",
                                                     "maximum"};
  const auto [type, items, description, minimum, maximum] = declared.find_each(names);
  read_type(type, schema.type);
  if (items) read_type(items->find("type"), schema.items.emplace().type);
  read_string(description, schema.description);
  read_bound(minimum, schema.minimum);
  read_bound(maximum, schema.maximum);
}

void read_param(const Node& param, PropertySchema& schema) {
  schema.name = name_of(param);
  read_property(param, schema);
  if (!schema.type) schema.type = "string";
  if (schema.items && !schema.items->type) {
    schema.items->type = param.at("items").at("type").string();  // must be given
  }
}

bool have_distinct_names(const std::vector<PropertySchema>& properties) {
  std::vector<std::string_view> names;
  names.reserve(properties.size());
  for (const PropertySchema& property : properties) names.push_back(property.name);
  std::ranges::sort(names);
  return std::ranges::adjacent_find(names) == names.end();
}

InputSchema made_from(const Node& params) {
  std::vector<PropertySchema> properties;
  properties.reserve(params.size());
  std::vector<std::string> required;
  params.for_each_element([&](const Node& param) {
    PropertySchema& schema = properties.emplace_back();
    read_param(param, schema);
    const auto is_required = param.find("required");
    if (is_required && is_required->boolean()) required.push_back(schema.name);
  });
  // A name that two parameters have is one property: one less than the parameters, so that
  // the tool is refused for naming different ones.
  if (!have_distinct_names(properties)) properties.pop_back();
  return {.properties = std::move(properties), .required = std::move(required)};
}

InputSchema as_given(const Node& schema) {
  InputSchema given;
  if (const auto properties = schema.find("properties")) {
    given.properties.emplace();
    properties->for_each_member([&](std::string_view name, const Node& declared) {
      PropertySchema& property = given.properties->emplace_back();
      property.name = name;
      read_property(declared, property);
    });
  }
  if (const auto required = schema.find("required")) given.required = required->strings();
  return given;
}

// The schema that is given, and not the parameters', where both are; each must be in order.
InputSchema schema_of(const Node& tool) {
  InputSchema schema{.properties = std::vector<PropertySchema>(),
                     .required = std::vector<std::string>()};
  if (const auto params = tool.find("params")) schema = made_from(*params);
  if (const auto given = tool.find("inputSchema")) schema = as_given(*given);
  return schema;
}

}  // namespace

Schemas schemas(const Node& registry) {
  Schemas found;
  registry.at("tools").for_each_element([&](const Node& tool) {
    found.emplace(name_of(tool), std::make_shared<const InputSchema>(schema_of(tool)));
  });
  return found;
}

std::string snake_to_kebab(std::string_view name) {
  std::string kebab(name);
  std::ranges::replace(kebab, '_', '-');
  return kebab;
}

}  // namespace tesmo_sorvet
