#include "registry/inputs.h"

#include <utility>
#include <vector>

#include "json_schema/field_reader.h"
#include "json_schema/shape_reader.h"
#include "json_schema/walk.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using json_schema::Field;
using json_schema::Shape;
using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Text;
using registry_docs::Value;
using registry_docs::ValueFormat;
using tesmo_sorvet::Inputs;

bool is_number(const Node& value) {
  return value.kind() == Kind::integer || value.kind() == Kind::floating;
}

void read_values(const std::vector<Node>& allowed, ParamSpec& param) {
  std::vector<Value> values;
  values.reserve(allowed.size());
  for (const Node& value : allowed) values.push_back(value.value());
  param.values_text = [values = std::move(values)](const ValueFormat& format) {
    return tesmo_sorvet::values_text(values, format);
  };
}

void read_bound(const MaybeNode& declared, Value& bound) {
  if (declared && is_number(*declared)) bound = declared->bound();
}

// The actions of a tool are the values of its parameter "action".
std::vector<Text> actions_of(const Shape& shape) {
  std::vector<Text> names;
  if (!shape.values) return names;
  for (const Node& value : *shape.values) {
    if (value.kind() != Kind::string) return {};
    names.push_back(Text::borrowed(value.string()));
  }
  return names;
}

// Reads the parameters of one tool.
class ParameterReader {
 public:
  ParameterReader(const Node& input_schema, std::deque<std::string>& texts,
                  std::vector<json_schema::Fault>& faults)
      : walk_(input_schema, "input schema", faults), texts_(texts) {}

  void add(const Field& field, Inputs& inputs) {
    ParamSpec& param = inputs.params.emplace_back();
    PropertySchema& schema = inputs.schema.properties->emplace_back();
    schema.name = param.name = Text::borrowed(field.name);
    schema.type = kept(field.type);
    schema.description = Text::borrowed(field.description);
    param.required = field.is_required;
    if (field.is_required) inputs.schema.required->push_back(param.name);
    if (!field.schema) return;  // several say it together
    const Shape shape = shapes_.read(*field.schema);
    read(shape, param, schema);
    if (field.name == "action") inputs.actions = actions_of(shape);
  }

 private:
  static void read(const Shape& shape, ParamSpec& param, PropertySchema& schema) {
    const bool has_text = shape.description && shape.description->kind() == Kind::string;
    schema.description = Text::borrowed(has_text ? shape.description->string() : "");
    read_bound(shape.minimum, schema.minimum);
    read_bound(shape.maximum, schema.maximum);
    if (shape.default_value) param.default_value = shape.default_value->value();
    if (shape.values) read_values(*shape.values, param);
  }

  // A type that most have stays for good; any other joins the texts.
  Text kept(const std::string& type) {
    const std::string_view common = json_schema::common_type(type);
    return Text::borrowed(common.empty() ? texts_.emplace_back(type) : common);
  }

  json_schema::Walk walk_;
  json_schema::ShapeReader shapes_{walk_};
  std::deque<std::string>& texts_;
};

}  // namespace

Inputs described_inputs(const Node& declared, std::deque<std::string>& texts,
                        std::vector<json_schema::Fault>& faults) {
  Inputs inputs;
  ParameterReader reader(declared, texts, faults);
  for (const Field& field : json_schema::read_input(declared, faults).fields) {
    if (!field.name.empty()) reader.add(field, inputs);  // empty: of no one member
  }
  return inputs;
}

}  // namespace registry
