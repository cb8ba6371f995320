#include "registry/inputs.h"

#include <array>

#include "json_schema/schema_reader.h"
#include "registry_docs/text.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using json_schema::SchemaReader;
using json_schema::Shape;
using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Text;
using registry_docs::ValueFormat;
using tesmo_sorvet::Inputs;
using tesmo_sorvet::read_limits;
using tesmo_sorvet::read_value;
using tesmo_sorvet::read_values;

bool is_plain(const MaybeNode& type) {
  return type && type->kind() == Kind::string && json_schema::is_type_name(type->string());
}

// Of most properties one name says the type, or the items' type, and no text needs to be made.
bool read_plain_type(const MaybeNode& type, const MaybeNode& items, PropertySchema& schema) {
  if (!is_plain(type)) return false;
  schema.type = Text::borrowed(type->string());
  if (*schema.type != "array") return true;
  if (!items || items->kind() != Kind::object) return false;
  const auto [type_of_items, values] =
      items->find_each(std::array<std::string_view, 2>{"type", "enum"});
  if (values || !is_plain(type_of_items) || type_of_items->string() == "array") return false;
  schema.items.emplace().type = Text::borrowed(type_of_items->string());
  return true;
}

void read_shape(const Node& declared, SchemaReader& reader, ParamSpec& param,
                PropertySchema& schema) {
  const Shape shape = reader.read(declared);
  schema.type = Text::borrowed(reader.type_text(declared, shape));
  read_limits({shape.description, shape.minimum, shape.maximum}, schema);
  read_value(shape.default_value, param.default_value);
  if (!shape.values) return;
  param.values_text = [values = shape.values](const ValueFormat& format) {
    return tesmo_sorvet::values_text(values->all, format);
  };
}

void read_property(const Node& declared, SchemaReader& reader, ParamSpec& param,
                   PropertySchema& schema) {
  if (declared.kind() == Kind::boolean) return read_shape(declared, reader, param, schema);
  constexpr std::array<std::string_view, 9> names = {"type",    "items", "description",
                                                     "default", "enum",  "minimum",
                                                     "maximum", "const", "$ref"};
  const auto [type, items, description, default_value, values, minimum, maximum, constant,
              reference] = declared.find_each(names);
  if (constant || reference || !read_plain_type(type, items, schema)) {
    return read_shape(declared, reader, param, schema);
  }
  read_limits({description, minimum, maximum}, schema);
  read_value(default_value, param.default_value);
  if (values) reader.require_elements(*values, "value");
  read_values(values, param);
}

// The actions of a tool are the values of its parameter "action".
std::vector<Text> actions_of(const Node& property, SchemaReader& reader) {
  const Shape shape = reader.read(property);
  if (!shape.values || shape.values->strings.size() != shape.values->all.size()) return {};
  std::vector<Text> actions;
  for (const std::string_view name : shape.values->strings) {
    actions.push_back(Text::borrowed(name));
  }
  return actions;
}

}  // namespace

Inputs described_inputs(const Node& declared, std::string_view tool,
                        std::deque<std::string>& texts) {
  constexpr std::array<std::string_view, 7> names = {"type",  "properties", "required", "$ref",
                                                     "anyOf", "oneOf",      "allOf"};
  const auto [type, properties, required, reference, any_of, one_of, all_of] =
      declared.find_each(names);
  SchemaReader reader(declared, tool, texts);
  if (type && type->string() != "object") {
    reader.refuse(*type, "\"object\"", registry_docs::in_quotes(type->string()));
  }
  Inputs inputs;
  if (required) inputs.schema.required = required->strings();
  for (const MaybeNode& combinator : {all_of, any_of, one_of}) {
    if (combinator) {
      reader.refuse(*combinator, R"(all parameters in "properties")", "a combinator");
    }
  }
  if (reference) reader.refuse(*reference, R"(all parameters in "properties")", "a reference");
  if (!properties) return inputs;
  read_properties(*properties, inputs,
                  [&](const Node& property, ParamSpec& param, PropertySchema& schema) {
                    read_property(property, reader, param, schema);
                    if (param.name == "action") inputs.actions = actions_of(property, reader);
                  });
  mark_required(inputs);
  return inputs;
}

}  // namespace registry
