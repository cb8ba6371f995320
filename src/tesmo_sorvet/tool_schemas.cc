#include "tesmo_sorvet/tool_schemas.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "registry_docs/markdown.h"
#include "tesmo_sorvet/excerpt.h"
#include "tesmo_sorvet/json_schema.h"
#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Value;
using registry_docs::ValueFormat;

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
struct Limits {
  const MaybeNode& description;
  const MaybeNode& minimum;
  const MaybeNode& maximum;
};

void read_limits(const Limits& declared, PropertySchema& schema) {
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
  schema.type = type ? type->string() : "string";
  if (items) schema.items.emplace().type = items->at("type").string();
  read_limits({description, minimum, maximum}, schema);
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

void read_declared_property(const Node& declared, ParamSpec& param, PropertySchema& schema) {
  constexpr std::array<std::string_view, 7> names = {
      "type", "items", "description", "default", "enum", "minimum", "maximum"};
  const auto [type, items, description, default_value, values, minimum, maximum] =
      declared.find_each(names);
  if (type) schema.type = type->string();
  if (items) {
    schema.items.emplace();
    if (const auto inner = items->find("type")) schema.items->type = inner->string();
  }
  read_limits({description, minimum, maximum}, schema);
  read_value(default_value, param.default_value);
  read_values(values, param);
}

// Marks the parameters that the schema requires.
void mark_required(Inputs& inputs) {
  if (!inputs.schema.required) return;
  const std::unordered_set<std::string_view> names(inputs.schema.required->begin(),
                                                   inputs.schema.required->end());
  for (ParamSpec& param : inputs.params) param.required = names.contains(param.name);
}

// Calls `read` with each property, and with the places for what it says.
template <typename Read>
void read_properties(const Node& declared, Inputs& inputs, Read read) {
  declared.for_each_member([&](std::string_view name, const Node& property) {
    if (name.empty()) property.refuse("a name", "an empty string");
    ParamSpec& param = inputs.params.emplace_back();
    PropertySchema& schema = inputs.schema.properties->emplace_back();
    schema.name = param.name = name;
    read(property, param, schema);
  });
}

// What must be there may be missing, which the renderers say.
Inputs from_declared_schema(const Node& declared) {
  Inputs inputs;
  const auto properties = declared.find("properties");
  const auto required = declared.find("required");
  if (required) inputs.schema.required = required->strings();
  if (!properties) return inputs;
  inputs.schema.properties.emplace();
  read_properties(*properties, inputs, read_declared_property);
  mark_required(inputs);
  return inputs;
}

bool is_plain(const MaybeNode& type) {
  return type && type->kind() == Kind::string && is_type_name(type->string());
}

// Of most properties one name says the type, or the items' type, and no text needs to be made.
bool read_plain_type(const MaybeNode& type, const MaybeNode& items, PropertySchema& schema) {
  if (!is_plain(type)) return false;
  schema.type = type->string();
  if (*schema.type != "array") return true;
  if (!items || items->kind() != Kind::object) return false;
  const auto [type_of_items, values] =
      items->find_each(std::array<std::string_view, 2>{"type", "enum"});
  if (values || !is_plain(type_of_items) || type_of_items->string() == "array") return false;
  schema.items.emplace().type = type_of_items->string();
  return true;
}

void read_shape(const Node& declared, SchemaReader& reader, ParamSpec& param,
                PropertySchema& schema) {
  const Shape shape = reader.read(declared);
  schema.type = reader.type_text(declared, shape);
  read_limits({shape.description, shape.minimum, shape.maximum}, schema);
  read_value(shape.default_value, param.default_value);
  if (!shape.values) return;
  param.values_text = [values = shape.values](const ValueFormat& format) {
    return values_text(values->all, format);
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
Names actions_of(const Node& property, SchemaReader& reader) {
  const Shape shape = reader.read(property);
  if (!shape.values || shape.values->strings.size() != shape.values->all.size()) return {};
  return shape.values->strings;
}

Inputs from_schema(const Node& declared, std::string_view tool,
                   std::deque<std::string>& texts) {
  constexpr std::array<std::string_view, 7> names = {"type",  "properties", "required", "$ref",
                                                     "anyOf", "oneOf",      "allOf"};
  const auto [type, properties, required, reference, any_of, one_of, all_of] =
      declared.find_each(names);
  SchemaReader reader(declared, tool, texts);
  if (type && type->string() != "object") {
    reader.refuse(*type, "\"object\"", in_quotes(type->string()));
  }
  Inputs inputs{.schema = {.properties = std::vector<PropertySchema>(), .required = Names()}};
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

}  // namespace

Inputs inputs_of(const MaybeNode& params, const MaybeNode& input_schema, SchemaRules rules,
                 std::string_view tool, std::deque<std::string>& texts) {
  Inputs inputs{.schema = {.properties = std::vector<PropertySchema>(), .required = Names()}};
  if (params) inputs = from_params(*params);
  if (!input_schema) return inputs;
  Inputs given = rules == SchemaRules::as_declared ? from_declared_schema(*input_schema)
                                                   : from_schema(*input_schema, tool, texts);
  if (params) {
    given.params = std::move(inputs.params);
    given.actions.clear();
  }
  return given;
}

std::string snake_to_kebab(std::string_view name) {
  std::string kebab(name);
  std::ranges::replace(kebab, '_', '-');
  return kebab;
}

}  // namespace tesmo_sorvet
