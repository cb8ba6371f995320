// A tool's parameters and its input schema, however they are declared.
#ifndef TESMO_SORVET_INPUTS_H
#define TESMO_SORVET_INPUTS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"
#include "registry_docs/host.h"

namespace tesmo_sorvet {

struct Inputs {
  std::vector<registry_docs::ParamSpec> params = {};
  registry_docs::InputSchema schema = {
      .properties = std::vector<registry_docs::PropertySchema>(),
      .required = std::vector<registry_docs::Text>()};
  std::vector<registry_docs::Text> actions = {};  // that the schema gives the tool
};

// From a tool's member "params", an array of parameters.
Inputs inputs_of_params(const json::Node& declared);

// From a tool's members "params" and "inputSchema". Each stands as given where both are; where
// one is, it makes the other as well. `read` makes the Inputs of an input schema. Borrows from
// the document.
template <typename Read>
Inputs inputs_of(const json::MaybeNode& params, const json::MaybeNode& input_schema,
                 Read read) {
  Inputs inputs = params ? inputs_of_params(*params) : Inputs();
  if (!input_schema) return inputs;
  Inputs given = read(*input_schema);
  if (!params) return given;
  inputs.schema = std::move(given.schema);
  return inputs;
}

// What a parameter, a property and a schema have alike.

struct Limits {
  const json::MaybeNode& description;
  const json::MaybeNode& minimum;
  const json::MaybeNode& maximum;
};
void read_limits(const Limits& declared, registry_docs::PropertySchema& schema);
void read_value(const json::MaybeNode& declared, registry_docs::Value& value);

// The values of an array, if there are any.
void read_values(const json::MaybeNode& declared, registry_docs::ParamSpec& param);

// "One of " and the values, each spelled and then written through the format.
std::string values_text(const std::vector<registry_docs::Value>& values,
                        const registry_docs::ValueFormat& format);

// Calls `read` with each property of a schema, and with the places for what it says.
template <typename Read>
void read_properties(const json::Node& declared, Inputs& inputs, Read read) {
  auto& properties = inputs.schema.properties.emplace();
  declared.for_each_member([&](std::string_view name, const json::Node& property) {
    if (name.empty()) property.refuse("a name", "an empty string");
    registry_docs::ParamSpec& param = inputs.params.emplace_back();
    registry_docs::PropertySchema& schema = properties.emplace_back();
    schema.name = param.name = registry_docs::Text::borrowed(name);
    read(property, param, schema);
  });
}

// Marks the parameters that the schema requires.
void mark_required(Inputs& inputs);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_INPUTS_H
