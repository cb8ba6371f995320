#include "tesmo_sorvet/tool_schemas.h"

#include <algorithm>

#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

using registry_docs::InputSchema;
using registry_docs::ItemsSchema;
using registry_docs::PropertySchema;
using registry_docs::Value;

Value bound_of(const Node& declared, std::string_view member) {
  const auto found = declared.find(member);
  return found ? found->bound() : Value();
}

std::optional<std::string> type_of(const Node& declared) {
  const auto found = declared.find("type");
  if (!found) return std::nullopt;
  return std::string(found->string());
}

// What a parameter and a property of a schema declare alike. What a parameter must give
// may be missing from a schema, which stands as given.
PropertySchema property(std::string name, const Node& declared) {
  PropertySchema schema{.name = std::move(name), .type = type_of(declared)};
  if (const auto items = declared.find("items")) {
    schema.items = ItemsSchema{.type = type_of(*items)};
  }
  schema.description = string_of(declared, "description");
  schema.minimum = bound_of(declared, "minimum");
  schema.maximum = bound_of(declared, "maximum");
  return schema;
}

PropertySchema param_property(const Node& param) {
  PropertySchema schema = property(name_of(param), param);
  if (!schema.type) schema.type = "string";
  if (schema.items) schema.items->type = param.at("items").at("type").string();
  return schema;
}

// A name that two parameters have is one property: the tool is then refused for naming
// different parameters.
InputSchema made_from(const Node& params) {
  std::vector<PropertySchema> properties;
  properties.reserve(params.size());
  std::vector<std::string> required;
  std::unordered_map<std::string_view, std::size_t> places;
  params.for_each_element([&](const Node& param) {
    PropertySchema schema = param_property(param);
    const auto is_required = param.find("required");
    if (is_required && is_required->boolean()) required.push_back(schema.name);
    const auto [place, is_new] =
        places.try_emplace(param.at("name").string(), properties.size());
    if (is_new) {
      properties.push_back(std::move(schema));
    } else {
      properties[place->second] = std::move(schema);
    }
  });
  return {.properties = std::move(properties), .required = std::move(required)};
}

InputSchema as_given(const Node& schema) {
  InputSchema given;
  if (const auto properties = schema.find("properties")) {
    given.properties.emplace();
    properties->for_each_member([&](std::string_view name, const Node& declared) {
      given.properties->push_back(property(std::string(name), declared));
    });
  }
  if (const auto required = schema.find("required")) given.required = required->strings();
  return given;
}

// The schema that is given, and not the parameters', where both are; each must be in order.
InputSchema schema_of(const Node& tool) {
  InputSchema made{.properties = std::vector<PropertySchema>(),
                   .required = std::vector<std::string>()};
  if (const auto params = tool.find("params")) made = made_from(*params);
  const auto schema = tool.find("inputSchema");
  return schema ? as_given(*schema) : made;
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
