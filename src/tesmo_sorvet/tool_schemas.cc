#include "tesmo_sorvet/tool_schemas.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "registry_docs/markdown.h"
#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Value;
using registry_docs::ValueFormat;

using MaybeNode = std::optional<Node>;
using Names = std::vector<std::string_view>;

void read_value(const MaybeNode& declared, Value& value) {
  if (declared) value = declared->value();
}

void read_bound(const MaybeNode& declared, Value& bound) {
  if (declared) bound = declared->bound();
}

// The text that names the values, each spelled and then written through a format.
std::string values_text(const std::vector<Value>& values, const ValueFormat& format) {
  std::string text = "One of ";
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) text += ", ";
    text += format(registry_docs::markdown::value(values[i]));
  }
  return text + ".";
}

void read_values(const MaybeNode& declared, ParamSpec& param) {
  if (!declared || declared->size() == 0) return;
  std::vector<Value> values;
  values.reserve(declared->size());
  declared->for_each_element([&](const Node& value) { values.push_back(value.value()); });
  param.values_text = [values = std::move(values)](const ValueFormat& format) {
    return values_text(values, format);
  };
}

// The members that a parameter and a property of a schema have alike.
struct SchemaMembers {
  const MaybeNode& type;
  const MaybeNode& items;
  const MaybeNode& description;
  const MaybeNode& minimum;
  const MaybeNode& maximum;
};

// What a parameter must give may be missing from a schema, which stands as given.
void read_schema(const SchemaMembers& declared, PropertySchema& schema) {
  if (declared.type) schema.type = declared.type->string();
  if (declared.items) {
    schema.items.emplace();
    if (const auto type = declared.items->find("type")) schema.items->type = type->string();
  }
  if (declared.description) schema.description = declared.description->string();
  read_bound(declared.minimum, schema.minimum);
  read_bound(declared.maximum, schema.maximum);
}

void read_param(const Node& declared, ParamSpec& param, PropertySchema& schema) {
  constexpr std::array<std::string_view, 11> names = {
      "name",    "type",    "items",  "description",     "required",  "default",
      "minimum", "maximum", "values", "action_defaults", "applies_to"};
  const auto [name, type, items, description, required, default_value, minimum, maximum,
              values, action_defaults, applies_to] = declared.find_each(names);
  schema.name = param.name = name_of(declared, name);
  read_schema({type, items, description, minimum, maximum}, schema);
  if (!schema.type) schema.type = "string";
  if (items) schema.items->type = items->at("type").string();  // must be given
  if (required) param.required = required->boolean();
  read_value(default_value, param.default_value);
  read_values(values, param);
  if (action_defaults) {
    action_defaults->for_each_member([&param](std::string_view action, const Node& value) {
      param.action_defaults.emplace_back(action, value.value());
    });
  }
  if (applies_to) param.applies_to = applies_to->strings();
}

bool have_distinct_names(const std::vector<PropertySchema>& properties) {
  Names names;
  names.reserve(properties.size());
  for (const PropertySchema& property : properties) names.push_back(property.name);
  std::ranges::sort(names);
  return std::ranges::adjacent_find(names) == names.end();
}

Inputs from_params(const Node& declared) {
  Inputs inputs{.schema = {.properties = std::vector<PropertySchema>(), .required = Names()}};
  std::vector<PropertySchema>& properties = *inputs.schema.properties;
  const std::size_t count = declared.size();
  inputs.params.reserve(count);
  properties.reserve(count);
  declared.for_each_element([&](const Node& element) {
    ParamSpec& param = inputs.params.emplace_back();
    read_param(element, param, properties.emplace_back());
    if (param.required) inputs.schema.required->push_back(param.name);
  });
  // A name that two parameters have is one property: one less than the parameters, so that
  // the tool is refused for naming different ones.
  if (!have_distinct_names(properties)) properties.pop_back();
  return inputs;
}

void read_property(const Node& declared, ParamSpec& param, PropertySchema& schema) {
  constexpr std::array<std::string_view, 7> names = {
      "type", "items", "description", "default", "enum", "minimum", "maximum"};
  const auto [type, items, description, default_value, values, minimum, maximum] =
      declared.find_each(names);
  if (param.name.empty()) declared.refuse("a name", "an empty string");
  read_schema({type, items, description, minimum, maximum}, schema);
  read_value(default_value, param.default_value);
  read_values(values, param);
}

Inputs from_schema(const Node& declared) {
  Inputs inputs;
  const auto properties = declared.find("properties");
  const auto required = declared.find("required");
  if (required) inputs.schema.required = required->strings();
  if (!properties) return inputs;
  inputs.schema.properties.emplace();
  properties->for_each_member([&](std::string_view name, const Node& property) {
    ParamSpec& param = inputs.params.emplace_back();
    PropertySchema& schema = inputs.schema.properties->emplace_back();
    schema.name = param.name = name;
    read_property(property, param, schema);
  });
  if (!required) return inputs;
  const std::unordered_set<std::string_view> names(inputs.schema.required->begin(),
                                                   inputs.schema.required->end());
  for (ParamSpec& param : inputs.params) param.required = names.contains(param.name);
  return inputs;
}

}  // namespace

Inputs inputs_of(const MaybeNode& params, const MaybeNode& input_schema) {
  Inputs inputs{.schema = {.properties = std::vector<PropertySchema>(), .required = Names()}};
  if (params) inputs = from_params(*params);
  if (!input_schema) return inputs;
  Inputs given = from_schema(*input_schema);
  if (params) given.params = std::move(inputs.params);
  return given;
}

std::string snake_to_kebab(std::string_view name) {
  std::string kebab(name);
  std::ranges::replace(kebab, '_', '-');
  return kebab;
}

}  // namespace tesmo_sorvet
