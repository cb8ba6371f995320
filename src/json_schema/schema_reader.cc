#include "json_schema/schema_reader.h"

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

#include "json/pointer.h"
#include "registry_docs/text.h"
#include "text/value.h"

namespace json_schema {

struct SchemaReader::Members {
  json::Node schema;
  json::MaybeNode type, items, prefix_items, description, default_value, listed, constant,
      minimum, maximum, reference, any_of, one_of, all_of;
};

namespace {

// A document is at most as deep; only references get deeper.
constexpr std::size_t deepest = 256;
constexpr std::size_t longest_text = 1000;

using Types = std::vector<std::string_view>;

std::string_view type_of(const json::Node& value) {
  switch (value.kind()) {
    case json::Kind::null:
      return "null";
    case json::Kind::boolean:
      return "boolean";
    case json::Kind::integer:
      return "integer";
    case json::Kind::floating:
      return "number";
    case json::Kind::string:
      return "string";
    case json::Kind::array:
      return "any[]";
    case json::Kind::object:
      break;
  }
  return "object";
}

void add_type(Types& types, std::string_view type) {
  if (std::ranges::find(types, type) == types.end()) types.push_back(type);
}

void add_types(Types& types, const Types& more) {
  for (const std::string_view type : more) add_type(types, type);
}

// A parameter that may be null as well is shown as what else it may be.
void leave_out_null(Types& types) {
  if (types.size() > 1) std::erase(types, "null");
}

std::string joined(const Types& types) {
  std::string text;
  for (const std::string_view type : types) {
    if (!text.empty()) text += " or ";
    text += type;
  }
  return text;
}

void add_value(const json::Node& value, ListedValues& values) {
  values.all.push_back(value.value());
  if (value.kind() == json::Kind::string) values.strings.push_back(value.string());
}

void take_given(json::MaybeNode& to, const json::MaybeNode& given) {
  if (given) to = given;
}

void take_missing(json::MaybeNode& to, const json::MaybeNode& given) {
  if (!to) to = given;
}

// What several branches list in all, each value once as it is shown, where every one that is
// more than null lists values.
class UnitedValues {
 public:
  void add(const Shape& branch) {
    if (branch.types == Types{"null"}) return;
    if (!branch.values) {
      all_are_listed_ = false;
      return;
    }
    for (const registry_docs::Value& value : branch.values->all) {
      if (seen_.insert(text::spelled(value)).second) {
        values_.all.push_back(value);
      }
    }
    for (const std::string_view value : branch.values->strings) {
      add_type(values_.strings, value);
    }
  }

  std::shared_ptr<const ListedValues> take() {
    if (!all_are_listed_ || values_.all.empty()) return nullptr;
    return std::make_shared<const ListedValues>(std::move(values_));
  }

 private:
  ListedValues values_;
  std::unordered_set<std::string> seen_;
  bool all_are_listed_ = true;
};

}  // namespace

bool is_type_name(std::string_view name) {
  constexpr std::array<std::string_view, 7> names = {"string", "integer", "boolean", "number",
                                                     "array",  "object",  "null"};
  return std::ranges::find(names, name) != names.end();
}

void SchemaReader::refuse(const json::Node& at, const std::string& expected,
                          const std::string& found) const {
  at.refuse(expected, found + " in the tool " + registry_docs::in_quotes(tool_));
}

void SchemaReader::require_elements(const json::Node& list,
                                    const std::string& expected) const {
  if (list.size() == 0) refuse(list, "at least one " + expected, "none");
}

Shape SchemaReader::read(const json::Node& schema) {
  if (schema.kind() == json::Kind::boolean) {
    if (!schema.boolean()) refuse(schema, "a schema that some value fits", "false");
    return {.types = {"any"}};
  }
  if (++depth_ > deepest) refuse(schema, "at most 256 schemas within one another", "more");
  constexpr std::array<std::string_view, 13> names = {
      "type",    "items",   "prefixItems", "description", "default", "enum", "const",
      "minimum", "maximum", "$ref",        "anyOf",       "oneOf",   "allOf"};
  const auto [type, items, prefix_items, description, default_value, listed, constant, minimum,
              maximum, reference, any_of, one_of, all_of] = schema.find_each(names);
  Shape shape =
      read_members({schema, type, items, prefix_items, description, default_value, listed,
                    constant, minimum, maximum, reference, any_of, one_of, all_of});
  --depth_;
  return shape;
}

// What stands in the schema itself wins over what it leads to.
Shape SchemaReader::read_members(const Members& members) {
  Shape shape = read_where_led(members);
  take_given(shape.description, members.description);
  take_given(shape.default_value, members.default_value);
  take_given(shape.minimum, members.minimum);
  take_given(shape.maximum, members.maximum);
  if (members.listed || members.constant) {
    ListedValues values;
    Types types;
    const auto add = [&](const json::Node& value) {
      add_value(value, values);
      add_type(types, type_of(value));
    };
    if (members.listed) {
      require_elements(*members.listed, "value");
      members.listed->for_each_element(add);
    } else {
      add(*members.constant);
    }
    shape.values = std::make_shared<const ListedValues>(std::move(values));
    shape.types = std::move(types);
  }
  if (members.type) shape.types = declared_types(members);
  if (shape.types.empty()) shape.types = {"any"};
  return shape;
}

Shape SchemaReader::read_where_led(const Members& members) {
  if (members.reference) return read_reference(*members.reference);
  if (members.type || members.listed || members.constant) return {};
  if (members.all_of) return read_intersection(*members.all_of);
  if (members.any_of) return read_union(*members.any_of);
  if (members.one_of) return read_union(*members.one_of);
  return {};
}

// Bounds and a default of one branch do not hold for the others.
Shape SchemaReader::read_union(const json::Node& branches) {
  require_elements(branches, "schema");
  Shape shape;
  UnitedValues values;
  branches.for_each_element([&](const json::Node& element) {
    const Shape branch = read(element);
    add_types(shape.types, branch.types);
    take_missing(shape.description, branch.description);
    values.add(branch);
  });
  leave_out_null(shape.types);
  shape.values = values.take();
  return shape;
}

// All that a branch says holds.
Shape SchemaReader::read_intersection(const json::Node& branches) {
  require_elements(branches, "schema");
  Shape shape;
  branches.for_each_element([&](const json::Node& element) {
    const Shape branch = read(element);
    if (shape.types.empty() || shape.types == Types{"any"}) {
      shape.types = branch.types;
    } else if (branch.types != Types{"any"} && branch.types != shape.types) {
      refuse(branches, "schemas of one type",
             registry_docs::excerpt(joined(shape.types)) + " and " +
                 registry_docs::excerpt(joined(branch.types)));
    }
    take_missing(shape.description, branch.description);
    take_missing(shape.default_value, branch.default_value);
    take_missing(shape.minimum, branch.minimum);
    take_missing(shape.maximum, branch.maximum);
    if (!shape.values) shape.values = branch.values;
  });
  return shape;
}

const Shape& SchemaReader::read_reference(const json::Node& reference) {
  const auto [place, is_new] = references_.try_emplace(reference.string());
  std::optional<Shape>& shape = place->second;  // stays there as others are added
  if (is_new) {
    shape = read(target(reference));
  } else if (!shape) {
    refuse(reference, "a reference that comes to an end",
           registry_docs::in_quotes(reference.string()) + " in a circle");
  }
  return *shape;
}

json::Node SchemaReader::target(const json::Node& reference) const {
  const std::string_view text = reference.string();
  const json::MaybeNode found =
      text.starts_with('#')
          ? json::pointed_at(root_, json::without_percent_escapes(text.substr(1)))
          : std::nullopt;
  if (!found)
    refuse(reference, "a reference into this input schema", registry_docs::in_quotes(text));
  return *found;
}

SchemaReader::Types SchemaReader::declared_types(const Members& members) {
  const json::Node& type = *members.type;
  if (type.kind() != json::Kind::array) return {declared_type(type, members)};
  require_elements(type, "type");
  Types types;
  type.for_each_element(
      [&](const json::Node& name) { add_type(types, declared_type(name, members)); });
  leave_out_null(types);
  return types;
}

std::string_view SchemaReader::declared_type(const json::Node& name, const Members& members) {
  if (!is_type_name(name.string())) {
    refuse(name, "string, integer, number, boolean, array, object or null",
           registry_docs::in_quotes(name.string()));
  }
  if (name.string() != "array") return name.string();
  const Types of_items = read_items(members).types;
  if (of_items == Types{"any"}) return "any[]";
  const std::string text = joined(of_items);
  return keep(members.schema, of_items.size() == 1 ? text + "[]" : "(" + text + ")[]");
}

// A tuple is shown as an array of what is in it.
Shape SchemaReader::read_items(const Members& members) {
  const json::MaybeNode& items = members.items;
  const bool is_closed = items && items->kind() == json::Kind::boolean && !items->boolean();
  if (members.prefix_items && (!items || is_closed)) return read_union(*members.prefix_items);
  if (!items) return {.types = {"any"}};
  return items->kind() == json::Kind::array ? read_union(*items) : read(*items);
}

std::string_view SchemaReader::type_text(const json::Node& schema, const Shape& shape) {
  if (shape.types.size() == 1) return shape.types.front();
  return keep(schema, joined(shape.types));
}

// References can make a text of any size from a few schemas.
std::string_view SchemaReader::keep(const json::Node& schema, std::string text) {
  if (text.size() > longest_text) {
    refuse(schema, "a type that takes at most 1000 bytes to write",
           registry_docs::excerpt(text));
  }
  return texts_.emplace_back(std::move(text));
}

}  // namespace json_schema
