#include "registry/inputs.h"

#include <array>
#include <utility>
#include <vector>

#include "json_schema/shape_reader.h"
#include "json_schema/walk.h"
#include "registry_docs/text.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using json_schema::Shape;
using registry_docs::ParamSpec;
using registry_docs::PropertySchema;
using registry_docs::Text;
using registry_docs::Value;
using registry_docs::ValueFormat;
using tesmo_sorvet::Inputs;
using tesmo_sorvet::read_limits;
using tesmo_sorvet::read_value;

void read_allowed(const std::vector<Node>& allowed, ParamSpec& param) {
  std::vector<Value> values;
  values.reserve(allowed.size());
  for (const Node& value : allowed) values.push_back(value.value());
  param.values_text = [values = std::move(values)](const ValueFormat& format) {
    return tesmo_sorvet::values_text(values, format);
  };
}

// Reads the properties of one tool's schema. What cannot be read is refused, with the tool's
// name.
class PropertyReader {
 public:
  // All must outlive this. The texts that are made join `texts`, which keeps each in its
  // place.
  PropertyReader(const Node& input_schema, std::string_view tool,
                 std::deque<std::string>& texts)
      : walk_(input_schema, "input schema", faults_), tool_(tool), texts_(texts) {}

  void read(const Node& declared, ParamSpec& param, PropertySchema& schema) {
    Shape shape = shape_of(declared);
    schema.type = Text::borrowed(kept(shapes_.type_text(declared, shape)));
    refuse_faults();
    read_limits({shape.description, shape.minimum, shape.maximum}, schema);
    read_value(shape.default_value, param.default_value);
    if (shape.values) read_allowed(*shape.values, param);
  }

  Shape shape_of(const Node& declared) {
    Shape shape = shapes_.read(declared);
    refuse_faults();
    return shape;
  }

  [[noreturn]] void refuse(const Node& at, const std::string& expected,
                           const std::string& found) const {
    at.refuse(expected, found + " in the tool " + registry_docs::in_quotes(tool_));
  }

 private:
  void refuse_faults() const {
    if (faults_.empty()) return;
    refuse(faults_.front().at, faults_.front().expected, faults_.front().found);
  }

  std::string_view kept(std::string text) {
    const std::string_view name = json_schema::common_type(text);
    return name.empty() ? texts_.emplace_back(std::move(text)) : name;
  }

  std::vector<json_schema::Fault> faults_ = {};
  json_schema::Walk walk_;
  json_schema::ShapeReader shapes_{walk_};
  std::string_view tool_;
  std::deque<std::string>& texts_;
};

// The actions of a tool are the values of its parameter "action".
std::vector<Text> actions_of(const Node& property, PropertyReader& reader) {
  const Shape shape = reader.shape_of(property);
  std::vector<Text> names;
  if (!shape.values) return names;
  for (const Node& value : *shape.values) {
    if (value.kind() != Kind::string) return {};
    names.push_back(Text::borrowed(value.string()));
  }
  return names;
}

}  // namespace

Inputs described_inputs(const Node& declared, std::string_view tool,
                        std::deque<std::string>& texts) {
  constexpr std::array<std::string_view, 7> names = {"type",  "properties", "required", "$ref",
                                                     "anyOf", "oneOf",      "allOf"};
  const auto [type, properties, required, reference, any_of, one_of, all_of] =
      declared.find_each(names);
  PropertyReader reader(declared, tool, texts);
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
                    reader.read(property, param, schema);
                    if (param.name == "action") inputs.actions = actions_of(property, reader);
                  });
  mark_required(inputs);
  return inputs;
}

}  // namespace registry
