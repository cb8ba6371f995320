#include "tesmo_sorvet/tool_schemas.h"

#include <algorithm>
#include <array>

namespace tesmo_sorvet {
namespace {

using json::Node;
using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Text;

void read_declared_property(const Node& declared, ParamSpec& param, PropertySchema& schema) {
  constexpr std::array<std::string_view, 7> names = {
      "type", "items", "description", "default", "enum", "minimum", "maximum"};
  const auto [type, items, description, default_value, values, minimum, maximum] =
      declared.find_each(names);
  if (type) schema.type = Text::borrowed(type->string());
  if (items) {
    schema.items.emplace();
    if (const auto inner = items->find("type")) {
      schema.items->type = Text::borrowed(inner->string());
    }
  }
  read_limits({description, minimum, maximum}, schema);
  read_value(default_value, param.default_value);
  read_values(values, param);
}

}  // namespace

Inputs inputs_as_declared(const Node& declared) {
  Inputs inputs{.schema = {}};
  const auto properties = declared.find("properties");
  const auto required = declared.find("required");
  if (required) inputs.schema.required = required->strings();
  if (!properties) return inputs;
  read_properties(*properties, inputs, read_declared_property);
  mark_required(inputs);
  return inputs;
}

std::string snake_to_kebab(std::string_view name) {
  std::string kebab(name);
  std::ranges::replace(kebab, '_', '-');
  return kebab;
}

}  // namespace tesmo_sorvet
