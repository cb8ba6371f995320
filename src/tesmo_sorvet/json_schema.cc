#include "tesmo_sorvet/json_schema.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unordered_set>
#include <utility>

#include "registry_docs/markdown.h"
#include "tesmo_sorvet/excerpt.h"

namespace tesmo_sorvet {

struct SchemaReader::Members {
  Node schema;
  MaybeNode type, items, prefix_items, description, default_value, listed, constant, minimum,
      maximum, reference, any_of, one_of, all_of;
};

namespace {

// A document is at most as deep; only references get deeper.
constexpr std::size_t deepest = 256;
constexpr std::size_t longest_text = 1000;

using Types = std::vector<std::string_view>;

std::string_view type_of(const Node& value) {
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

void add_value(const Node& value, ListedValues& values) {
  values.all.push_back(value.value());
  if (value.kind() == Kind::string) values.strings.push_back(value.string());
}

void take_given(MaybeNode& to, const MaybeNode& given) {
  if (given) to = given;
}

void take_missing(MaybeNode& to, const MaybeNode& given) {
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
      if (seen_.insert(registry_docs::markdown::value(value)).second) {
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

int hexadecimal(char c) {
  constexpr std::string_view digits = "0123456789abcdefABCDEF";
  const std::size_t place = digits.find(c);
  if (place == std::string_view::npos) return -1;
  return static_cast<int>(place < 16 ? place : place - 6);
}

// Of a URI's fragment.
std::string without_percent_escapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? hexadecimal(text[i + 1]) : -1;
    const int low = high >= 0 ? hexadecimal(text[i + 2]) : -1;
    plain += low < 0 ? text[i] : static_cast<char>(high * 16 + low);
    if (low >= 0) i += 2;
  }
  return plain;
}

// Of one name in a JSON pointer.
std::string without_tilde_escapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_escape =
        text[i] == '~' && i + 1 < text.size() && (text[i + 1] == '0' || text[i + 1] == '1');
    plain += !is_escape ? text[i] : text[i + 1] == '0' ? '~' : '/';
    if (is_escape) ++i;
  }
  return plain;
}

MaybeNode element(const Node& array, std::string_view number) {
  std::size_t index = 0;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), index);
  MaybeNode found;
  if (error != std::errc() || end != number.data() + number.size()) return found;
  array.for_each_element([&](const Node& each) {
    if (index-- == 0) found = each;
  });
  return found;
}

MaybeNode child(const Node& node, const std::string& name) {
  if (node.kind() == Kind::object) return node.find(name);
  return node.kind() == Kind::array ? element(node, name) : std::nullopt;
}

// Where a JSON pointer leads from a node.
MaybeNode pointed_at(Node node, std::string_view pointer) {
  while (!pointer.empty()) {
    if (pointer.front() != '/') return std::nullopt;
    const std::size_t end = pointer.find('/', 1);
    const MaybeNode next = child(node, without_tilde_escapes(pointer.substr(1, end - 1)));
    if (!next) return std::nullopt;
    node = *next;
    pointer.remove_prefix(std::min(end, pointer.size()));
  }
  return node;
}

}  // namespace

bool is_type_name(std::string_view name) {
  constexpr std::array<std::string_view, 7> names = {"string", "integer", "boolean", "number",
                                                     "array",  "object",  "null"};
  return std::ranges::find(names, name) != names.end();
}

void SchemaReader::refuse(const Node& at, const std::string& expected,
                          const std::string& found) const {
  at.refuse(expected, found + " in the tool " + in_quotes(tool_));
}

void SchemaReader::require_elements(const Node& list, const std::string& expected) const {
  if (list.size() == 0) refuse(list, "at least one " + expected, "none");
}

Shape SchemaReader::read(const Node& schema) {
  if (schema.kind() == Kind::boolean) {
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
    const auto add = [&](const Node& value) {
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
Shape SchemaReader::read_union(const Node& branches) {
  require_elements(branches, "schema");
  Shape shape;
  UnitedValues values;
  branches.for_each_element([&](const Node& element) {
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
Shape SchemaReader::read_intersection(const Node& branches) {
  require_elements(branches, "schema");
  Shape shape;
  branches.for_each_element([&](const Node& element) {
    const Shape branch = read(element);
    if (shape.types.empty() || shape.types == Types{"any"}) {
      shape.types = branch.types;
    } else if (branch.types != Types{"any"} && branch.types != shape.types) {
      refuse(branches, "schemas of one type",
             excerpt(joined(shape.types)) + " and " + excerpt(joined(branch.types)));
    }
    take_missing(shape.description, branch.description);
    take_missing(shape.default_value, branch.default_value);
    take_missing(shape.minimum, branch.minimum);
    take_missing(shape.maximum, branch.maximum);
    if (!shape.values) shape.values = branch.values;
  });
  return shape;
}

const Shape& SchemaReader::read_reference(const Node& reference) {
  const auto [place, is_new] = references_.try_emplace(reference.string());
  std::optional<Shape>& shape = place->second;  // stays there as others are added
  if (is_new) {
    shape = read(target(reference));
  } else if (!shape) {
    refuse(reference, "a reference that comes to an end",
           in_quotes(reference.string()) + " in a circle");
  }
  return *shape;
}

Node SchemaReader::target(const Node& reference) const {
  const std::string_view text = reference.string();
  const MaybeNode found = text.starts_with('#')
                              ? pointed_at(root_, without_percent_escapes(text.substr(1)))
                              : std::nullopt;
  if (!found) refuse(reference, "a reference into this input schema", in_quotes(text));
  return *found;
}

SchemaReader::Types SchemaReader::declared_types(const Members& members) {
  const Node& type = *members.type;
  if (type.kind() != Kind::array) return {declared_type(type, members)};
  require_elements(type, "type");
  Types types;
  type.for_each_element(
      [&](const Node& name) { add_type(types, declared_type(name, members)); });
  leave_out_null(types);
  return types;
}

std::string_view SchemaReader::declared_type(const Node& name, const Members& members) {
  if (!is_type_name(name.string())) {
    refuse(name, "string, integer, number, boolean, array, object or null",
           in_quotes(name.string()));
  }
  if (name.string() != "array") return name.string();
  const Types of_items = read_items(members).types;
  if (of_items == Types{"any"}) return "any[]";
  const std::string text = joined(of_items);
  return keep(members.schema, of_items.size() == 1 ? text + "[]" : "(" + text + ")[]");
}

// A tuple is shown as an array of what is in it.
Shape SchemaReader::read_items(const Members& members) {
  const MaybeNode& items = members.items;
  const bool is_closed = items && items->kind() == Kind::boolean && !items->boolean();
  if (members.prefix_items && (!items || is_closed)) return read_union(*members.prefix_items);
  if (!items) return {.types = {"any"}};
  return items->kind() == Kind::array ? read_union(*items) : read(*items);
}

std::string_view SchemaReader::type_text(const Node& schema, const Shape& shape) {
  if (shape.types.size() == 1) return shape.types.front();
  return keep(schema, joined(shape.types));
}

// References can make a text of any size from a few schemas.
std::string_view SchemaReader::keep(const Node& schema, std::string text) {
  if (text.size() > longest_text) {
    refuse(schema, "a type that takes at most 1000 bytes to write", excerpt(text));
  }
  return texts_.emplace_back(std::move(text));
}

}  // namespace tesmo_sorvet
