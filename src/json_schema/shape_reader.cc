#include "json_schema/shape_reader.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "registry_docs/text.h"
#include "text/join.h"
#include "text/value.h"

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

constexpr std::size_t longest_text = 1000;

// First those that JSON Schema has names for.
constexpr std::array<std::string_view, 14> common_types = {
    "string", "integer",  "boolean",   "number",    "object",   "null",     "array",
    "any",    "string[]", "integer[]", "boolean[]", "number[]", "object[]", "any[]"};
constexpr std::size_t named_types = 7;

bool is_type_name(std::string_view name) {
  const auto* const end = common_types.begin() + named_types;
  return std::find(common_types.begin(), end, name) != end;
}

const char* type_of(const Node& value) {
  switch (value.kind()) {
    case Kind::null:
      return "null";
    case Kind::boolean:
      return "boolean";
    case Kind::integer:
      return "integer";
    case Kind::floating:
      return "number";
    case Kind::string:
      return "string";
    case Kind::array:
      return "any[]";
    case Kind::object:
      break;
  }
  return "object";
}

Shape any() { return {.types = {"any"}}; }

bool is_any(const Types& types) { return types.size() == 1 && types.front() == "any"; }

void add_type(Types& types, std::string_view type) {
  if (std::ranges::find(types, type) == types.end()) types.emplace_back(type);
}

// A parameter that may be null as well is shown as what else it may be.
void leave_out_null(Shape& shape) {
  if (shape.types.size() > 1 && std::erase(shape.types, "null") > 0) shape.is_nullable = true;
}

void take_given(MaybeNode& to, const MaybeNode& given) {
  if (given) to = given;
}

void take_missing(MaybeNode& to, const MaybeNode& given) {
  if (!to) to = given;
}

// What several schemas list in all, each value once as it is shown, where every one that is
// more than null lists values.
class UnitedValues {
 public:
  void add(const Shape& schema) {
    if (schema.types == Types{"null"}) return;
    if (!schema.values) all_are_listed_ = false;
    if (!all_are_listed_) return;
    for (const Node& value : *schema.values) {
      if (seen_.insert(text::spelled(value.value())).second) values_.push_back(value);
    }
  }

  std::optional<std::vector<Node>> take() {
    if (!all_are_listed_ || values_.empty()) return std::nullopt;
    return std::move(values_);
  }

 private:
  std::vector<Node> values_;
  std::unordered_set<std::string> seen_;
  bool all_are_listed_ = true;
};

// Bounds and a default of one schema do not hold for the others.
class UnitedShape {
 public:
  void add(const Shape& schema) {
    for (const std::string& type : schema.types) add_type(shape_.types, type);
    if (schema.is_nullable) shape_.is_nullable = true;
    take_missing(shape_.description, schema.description);
    values_.add(schema);
  }

  Shape take() {
    leave_out_null(shape_);
    shape_.values = values_.take();
    return std::move(shape_);
  }

 private:
  Shape shape_;
  UnitedValues values_;
};

}  // namespace

std::string_view common_type(std::string_view type) {
  const auto* const found = std::ranges::find(common_types, type);
  return found == common_types.end() ? std::string_view() : *found;
}

std::string joined(const Types& types) { return text::join(types, " or "); }

Shape ShapeReader::read(const Node& schema) {
  return walk_.require_schema(schema) ? read(Parts(schema)) : any();
}

Shape ShapeReader::read(const Parts& parts) {
  if (depth_ == deepest) {
    walk_.add_fault(parts.schema(), "at most 256 schemas within one another", "more");
    return any();
  }
  ++depth_;
  const Opening opening(walk_, parts.schema());
  Shape shape = read_parts(parts);
  --depth_;
  return shape;
}

// What stands in the schema itself wins over what it leads to.
Shape ShapeReader::read_parts(const Parts& parts) {
  Shape shape = read_where_led(parts);
  take_given(shape.description, parts[Keyword::description]);
  take_given(shape.default_value, parts[Keyword::default_value]);
  take_given(shape.minimum, parts[Keyword::minimum]);
  take_given(shape.maximum, parts[Keyword::maximum]);
  add_allowed(parts, shape);
  if (parts[Keyword::type]) declare_types(parts, shape);
  if (shape.types.empty()) shape.types = {"any"};
  return shape;
}

void ShapeReader::add_allowed(const Parts& parts, Shape& shape) {
  std::vector<Node> values;
  if (const MaybeNode& listed = parts[Keyword::enumeration]) {
    if (!walk_.require_elements(*listed, "value")) return;
    listed->for_each_element([&](const Node& value) { values.push_back(value); });
  } else if (const MaybeNode& constant = parts[Keyword::constant]) {
    values.push_back(*constant);
  } else {
    return;
  }
  shape.types.clear();
  for (const Node& value : values) add_type(shape.types, type_of(value));
  shape.is_nullable = false;
  shape.values = std::move(values);
}

Shape ShapeReader::read_where_led(const Parts& parts) {
  if (const MaybeNode& reference = parts[Keyword::reference])
    return read_reference(*reference);
  if (parts[Keyword::type] || parts[Keyword::enumeration] || parts[Keyword::constant]) {
    return {};
  }
  if (const MaybeNode& all_of = parts[Keyword::all_of]) return read_intersection(*all_of);
  if (const MaybeNode& any_of = parts[Keyword::any_of]) return read_union(*any_of);
  if (const MaybeNode& one_of = parts[Keyword::one_of]) return read_union(*one_of);
  return {};
}

Shape ShapeReader::read_union(const Node& schemas) {
  if (!walk_.require_elements(schemas, "schema")) return any();
  UnitedShape united;
  schemas.for_each_element([&](const Node& schema) { united.add(read(schema)); });
  return united.take();
}

Shape ShapeReader::read_union(const std::vector<Node>& schemas) {
  UnitedShape united;
  for (const Node& schema : schemas) united.add(read(schema));
  return united.take();
}

// All that a schema says holds.
Shape ShapeReader::read_intersection(const Node& schemas) {
  if (!walk_.require_elements(schemas, "schema")) return any();
  Shape shape;
  bool agree = true;
  schemas.for_each_element([&](const Node& element) {
    Shape schema = read(element);
    agree = agree && intersect_types(schemas, schema, shape);
    take_missing(shape.description, schema.description);
    take_missing(shape.default_value, schema.default_value);
    take_missing(shape.minimum, schema.minimum);
    take_missing(shape.maximum, schema.maximum);
    if (!shape.values) shape.values = std::move(schema.values);
  });
  return shape;
}

bool ShapeReader::intersect_types(const Node& schemas, const Shape& schema, Shape& shape) {
  if (shape.types.empty() || is_any(shape.types)) {
    shape.types = schema.types;
    shape.is_nullable = schema.is_nullable;
    return true;
  }
  if (is_any(schema.types) || schema.types == shape.types) return true;
  walk_.add_fault(schemas, "schemas of one type",
                  registry_docs::excerpt(joined(shape.types)) + " and " +
                      registry_docs::excerpt(joined(schema.types)));
  shape.types = {"any"};
  return false;
}

Shape ShapeReader::read_reference(const Node& reference) {
  Target target = walk_.follow(reference);
  if (target.schema) return read(*target.schema);
  return target.name.empty() ? any() : Shape{.types = {std::move(target.name)}};
}

void ShapeReader::declare_types(const Parts& parts, Shape& shape) {
  const Node type = *parts[Keyword::type];
  shape.types.clear();
  shape.is_nullable = false;
  if (type.kind() != Kind::array) {
    shape.types.push_back(declared_type(type, parts));
  } else if (walk_.require_elements(type, "type")) {
    type.for_each_element(
        [&](const Node& name) { add_type(shape.types, declared_type(name, parts)); });
    leave_out_null(shape);
  }
}

std::string ShapeReader::declared_type(const Node& name, const Parts& parts) {
  if (!walk_.require(name, Kind::string)) return "any";
  if (!is_type_name(name.string())) {
    walk_.add_fault(name, "string, integer, number, boolean, array, object or null",
                    registry_docs::in_quotes(name.string()));
    return "any";
  }
  if (name.string() != "array") return std::string(name.string());
  const Types of_items = read_items(parts).types;
  if (is_any(of_items)) return "any[]";
  const std::string text = joined(of_items);
  return bounded(parts.schema(), of_items.size() == 1 ? text + "[]" : "(" + text + ")[]");
}

// A tuple is shown as an array of what is in it.
Shape ShapeReader::read_items(const Parts& parts) {
  const MaybeNode& items = parts[Keyword::items];
  const MaybeNode& prefix_items = parts[Keyword::prefix_items];
  const bool is_closed = items && items->kind() == Kind::boolean && !items->boolean();
  if (prefix_items && (!items || is_closed)) return read_union(*prefix_items);
  if (!items) return any();
  return items->kind() == Kind::array ? read_union(*items) : read(*items);
}

std::string ShapeReader::type_text(const Node& schema, const Shape& shape) {
  if (shape.types.size() == 1) return shape.types.front();
  return bounded(schema, joined(shape.types));
}

// References can make a text of any size from a few schemas.
std::string ShapeReader::bounded(const Node& schema, std::string text) {
  if (text.size() <= longest_text) return text;
  walk_.add_fault(schema, "a type that takes at most 1000 bytes to write",
                  registry_docs::excerpt(text));
  return "any";
}

}  // namespace json_schema
