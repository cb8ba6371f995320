#include "tesmo_sorvet/inputs.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "registry_docs/text.h"
#include "tesmo_sorvet/tool_registry.h"
#include "text/value.h"

namespace tesmo_sorvet {
namespace {

using json::MaybeNode;
using json::Node;
using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Text;
using registry_docs::Value;
using registry_docs::ValueFormat;

void read_bound(const MaybeNode& declared, Value& bound) {
  if (declared) bound = declared->bound();
}

void read_param(const Node& declared, ParamSpec& param, PropertySchema& schema) {
  constexpr std::array<std::string_view, 11> names = {
      "name",    "type",    "items",  "description",     "required",  "default",
      "minimum", "maximum", "values", "action_defaults", "applies_to"};
  const auto [name, type, items, description, required, default_value, minimum, maximum,
              values, action_defaults, applies_to] = declared.find_each(names);
  schema.name = param.name = Text::borrowed(name_of(declared, name));
  schema.type = Text::borrowed(type ? type->string() : "string");
  if (items) schema.items.emplace().type = Text::borrowed(items->at("type").string());
  read_limits({description, minimum, maximum}, schema);
  if (required) param.required = required->boolean();
  read_value(default_value, param.default_value);
  read_values(values, param);
  if (action_defaults) {
    action_defaults->for_each_member([&param](std::string_view action, const Node& value) {
      param.action_defaults.emplace_back(Text::borrowed(action), value.value());
    });
  }
  if (applies_to) param.applies_to = applies_to->strings();
}

bool have_distinct_names(const std::vector<PropertySchema>& properties) {
  std::vector<std::string_view> names;
  names.reserve(properties.size());
  for (const PropertySchema& property : properties) names.push_back(property.name);
  std::ranges::sort(names);
  return std::ranges::adjacent_find(names) == names.end();
}

}  // namespace

void read_value(const MaybeNode& declared, Value& value) {
  if (declared) value = declared->value();
}

std::string values_text(const std::vector<Value>& values, const ValueFormat& format) {
  std::string text = "One of ";
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (i > 0) text += ", ";
    text += format(text::spelled(values[i]));
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

void read_limits(const Limits& declared, PropertySchema& schema) {
  if (declared.description) {
    schema.description = Text::borrowed(declared.description->string());
  }
  read_bound(declared.minimum, schema.minimum);
  read_bound(declared.maximum, schema.maximum);
}

Inputs inputs_of_params(const Node& declared) {
  Inputs inputs;
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

void mark_required(Inputs& inputs) {
  if (!inputs.schema.required) return;
  const std::unordered_set<std::string_view> names(inputs.schema.required->begin(),
                                                   inputs.schema.required->end());
  for (ParamSpec& param : inputs.params) param.required = names.contains(param.name);
}

}  // namespace tesmo_sorvet
