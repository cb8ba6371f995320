#include "json_schema/field_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>

#include "json_schema/annotations.h"
#include "json_schema/children.h"
#include "json_schema/conjunction.h"
#include "json_schema/forms.h"
#include "json_schema/required.h"
#include "json_schema/shape_reader.h"
#include "registry_docs/text.h"

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

constexpr std::size_t most_fields = 10'000;

// What is within a field is one deeper, and a parameter at 0.
constexpr auto above_parameters = static_cast<std::size_t>(-1);

// Whether a schema leads to no other and holds none. Three of four are such, and take a fifth
// of the time that others take.
bool is_leaf(const Parts& parts) {
  constexpr Keywords leading = keywords_of(
      Keyword::reference, Keyword::all_of, Keyword::any_of, Keyword::one_of,
      Keyword::properties, Keyword::pattern_properties, Keyword::additional_properties,
      Keyword::required, Keyword::items, Keyword::prefix_items);
  return !parts.has_any(leading);
}

// The type that a schema gives by its name alone, if it is one of no parts.
std::string_view simple_type(const Parts& parts) {
  constexpr std::array<std::string_view, 4> types = {"string", "integer", "number", "boolean"};
  const MaybeNode& type = parts[Keyword::type];
  if (!type || type->kind() != Kind::string || parts[Keyword::enumeration]) return {};
  const auto* const found = std::ranges::find(types, type->string());
  return found == types.end() ? std::string_view() : *found;
}

void put_into_words(Field& field) {
  field.limit_words = words_of(field.limits);
  if (field.has_nullable_items) field.limit_words.push_back({{.text = "each may be null"}});
}

// Whether positions of an array have fields of their own.
bool is_tuple(const Field& array) {
  return std::ranges::any_of(array.fields, [&array](const Field& part) {
    return part.path.size() == array.path.size() + 3 && part.path.ends_with("[0]");
  });
}

// Whether its schema says all that is known of a field.
bool can_be_read_again(const Field& field) { return field.schema && field.form.empty(); }

// Whether the schemas of a union say what they require, and nothing else.
bool note_choice(Field& field, const Node& schemas, Keyword keyword) {
  const auto choices = required_by_each(schemas);
  if (!choices) return false;
  auto note =
      choice_of(*choices, keyword == Keyword::one_of ? Choice::exactly_one : Choice::any);
  if (note) field.notes.push_back(std::move(*note));
  return true;
}

enum class IsOneOf : std::uint8_t { no, yes };

class FieldReader {
 public:
  FieldReader(const Node& root, const char* name, std::vector<Fault>& faults)
      : walk_(root, name, faults) {}

  Field read(const Node& schema) {
    Field field{.depth = above_parameters};
    tell_required(field, fill(field, schema));
    field.depth = 0;
    return field;
  }

 private:
  // What is required of an object, in order of the names.
  Names fill(Field& field, const Node& schema);
  Names fill(Field& field, const Child& child, std::span<const Holding> around);
  Names fill_from(Field& field, std::span<const Holding> all);

  void take_types(Field& field, Shape shape);
  void read_children(Field& field, std::span<const Holding> all, const Names& required);
  void read_child(Field& field, const Child& child, std::span<const Holding> around,
                  const Names& required);
  static void add_items(Field& field);
  void read_unions(Field& field, std::span<const Holding> all, const Names& required);
  std::vector<Form> forms_of(Field& field, const std::vector<Node>& schemas);
  void tell_forms(Field& field, std::vector<Form>& forms, const Names& required);
  void merge(Field& field, std::vector<Form>& forms, const Names& required);
  void merge_fields(Field& field, std::vector<Form>& forms, const Names& required);
  void read_again(Field& field, const std::vector<Node>& schemas, IsOneOf is_one);
  std::size_t granted(Field& field, std::size_t wanted);

  Walk walk_;
  ShapeReader shapes_{walk_};
  std::size_t depth_ = 0;
  std::size_t left_ = most_fields;
};

Names FieldReader::fill(Field& field, const Node& schema) {
  const Opening opening(walk_, schema);
  field.schema = schema;
  walk_.require_schema(schema);
  const Holding own{.parts = Parts(schema)};
  if (is_leaf(own.parts)) {
    field.type = simple_type(own.parts);
    if (field.type.empty()) take_types(field, shapes_.read(own.parts));
    annotate(field, own.parts, walk_);
    put_into_words(field);
    return {};
  }
  take_types(field, shapes_.read(own.parts));
  if (!leads_further(own.parts)) return fill_from(field, {&own, 1});
  std::vector<Holding> all;
  add_all_that_hold(schema, walk_, all);
  return fill_from(field, all);
}

// Of what holds of a part of a value, each standing in one of those that hold of the whole.
Names FieldReader::fill(Field& field, const Child& child, std::span<const Holding> around) {
  if (child.more.empty()) {
    const Opening opening(walk_);
    if (around.size() > 1) walk_.open(way_to(child.within, around));
    return fill(field, child.schema);
  }
  std::vector<Holding> all;
  const auto add = [&](const Node& schema, std::size_t within) {
    if (!walk_.require_schema(schema)) return;
    const Opening opening(walk_);
    std::vector<Node> way = way_to(within, around);
    walk_.open(way);
    take_types(field, shapes_.read(schema));
    const std::size_t place = all.size();
    add_all_that_hold(schema, walk_, all);
    all[place].around = std::move(way);
  };
  field.schema = child.schema;
  take_types(field, {.types = {"any"}});
  add(child.schema, child.within);
  for (const auto& [schema, within] : child.more) add(schema, within);
  Names required = fill_from(field, all);
  field.schema = std::nullopt;  // none says it all
  return required;
}

Names FieldReader::fill_from(Field& field, std::span<const Holding> all) {
  for (const Holding& each : all) annotate(field, each.parts, walk_);
  Names required = required_by(all, walk_);
  ++depth_;
  read_children(field, all, required);
  read_unions(field, all, required);
  --depth_;
  put_into_words(field);
  return required;
}

void FieldReader::take_types(Field& field, Shape shape) {
  if (!field.type.empty() && field.type != "any") return;
  field.type = shapes_.type_text(*field.schema, shape);
  field.types.clear();
  if (shape.types.size() > 1) field.types = std::move(shape.types);
  field.is_nullable = shape.is_nullable;
}

// How many fields more there is room for, so that those beside one another come before those
// within them.
std::size_t FieldReader::granted(Field& field, std::size_t wanted) {
  const std::size_t count = depth_ < deepest ? std::min(wanted, left_) : 0;
  if (count < wanted) field.is_cut = true;
  left_ -= count;
  return count;
}

void FieldReader::read_children(Field& field, std::span<const Holding> all,
                                const Names& required) {
  std::vector<Child> children = children_of(all, walk_);
  children.erase(
      children.begin() + static_cast<std::ptrdiff_t>(granted(field, children.size())),
      children.end());
  field.fields.reserve(children.size());
  for (const Child& child : children) read_child(field, child, all, required);
}

void FieldReader::read_child(Field& field, const Child& child, std::span<const Holding> around,
                             const Names& required) {
  const bool are_items = child.step == Step::items && !is_tuple(field);
  Field& part = field.fields.emplace_back();
  path_to(field.path, child, part.path);
  part.depth = are_items ? field.depth : field.depth + 1;
  if (child.step == Step::property) {
    part.name = child.name;
    part.is_required = holds(required, child.name);
  }
  tell_required(part, fill(part, child, around));
  if (are_items) add_items(field);
}

// The last field is that of an array's items.
void FieldReader::add_items(Field& field) {
  Field& items = field.fields.back();
  if (field.values.empty()) field.values = items.values;
  if (can_fold_items(items)) {
    Field folded = std::move(items);
    field.fields.pop_back();
    fold_items(field, std::move(folded));
  } else {
    deepen(items);
  }
}

void FieldReader::read_unions(Field& field, std::span<const Holding> all,
                              const Names& required) {
  const bool lists_values = !field.values.empty();
  for (std::size_t place = 0; place < all.size(); ++place) {
    for (const Keyword keyword : {Keyword::any_of, Keyword::one_of}) {
      const MaybeNode& schemas = all[place].parts[keyword];
      if (!schemas || !walk_.require_elements(*schemas, "schema")) continue;
      const std::vector<Node> alternatives = more_than_null(*schemas);
      if (alternatives.size() < 2) continue;  // one holds in any case
      if (note_choice(field, *schemas, keyword)) continue;
      const Opening opening(walk_);
      walk_.open(way_to(place, all));
      std::vector<Form> forms = forms_of(field, alternatives);
      if (!lists_values) unite_values(field, forms);
      tell_forms(field, forms, required);
    }
  }
}

void FieldReader::tell_forms(Field& field, std::vector<Form>& forms, const Names& required) {
  if (field.path.empty() && are_of_parameters(forms)) {
    merge(field, forms, required);
  } else {
    add_forms(field, forms);
  }
}

std::vector<Form> FieldReader::forms_of(Field& field, const std::vector<Node>& schemas) {
  std::vector<Form> forms;
  const std::size_t count = granted(field, schemas.size());
  const bool is_typed =
      field.schema && field.schema->kind() == Kind::object && field.schema->find("type");
  forms.reserve(count);
  for (const Node& schema : std::span(schemas).first(count)) {
    auto& [form, required] = forms.emplace_back();
    form.path = field.path;
    form.depth = field.depth;
    required = fill(form, schema);
    if (form.type == "any" && is_typed) {
      form.type = field.type;
      form.types = field.types;
    }
    form.form = label_of(form, schema);
  }
  return forms;
}

// The forms of all parameters together: each parameter stands once.
void FieldReader::merge(Field& field, std::vector<Form>& forms, const Names& required) {
  Names in_any_case = common_names(forms);
  in_any_case.insert(in_any_case.end(), required.begin(), required.end());
  std::ranges::sort(in_any_case);
  tell_apart(forms);
  note_required(field, forms, in_any_case);
  gather(field, forms);
  merge_fields(field, forms, in_any_case);
}

void FieldReader::merge_fields(Field& field, std::vector<Form>& forms, const Names& required) {
  const std::size_t own = field.fields.size();
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t at = 0; at < own; ++at) places.emplace(field.fields[at].path, at);
  std::map<std::size_t, std::vector<Node>> again;  // schemas of a field, by its place
  for (auto& [form, of_form] : forms) {
    for (Field& part : form.fields) {
      const auto place = can_be_read_again(part) ? places.find(part.path) : places.end();
      if (place != places.end() && can_be_read_again(field.fields[place->second])) {
        again[place->second].push_back(*part.schema);
        continue;
      }
      places.emplace(part.path, field.fields.size());
      part.is_required = holds(required, part.name);
      field.fields.push_back(std::move(part));
    }
  }
  for (const auto& [at, schemas] : again) {
    read_again(field.fields[at], schemas, at < own ? IsOneOf::no : IsOneOf::yes);
  }
}

// A parameter that several forms have: its own schema is one of several, or holds in any case.
void FieldReader::read_again(Field& field, const std::vector<Node>& schemas, IsOneOf is_one) {
  std::vector<Node> different = {*field.schema};
  unite(different, schemas);
  if (different.size() == 1) return;
  if (is_one == IsOneOf::yes) {
    field = {.name = field.name,
             .path = std::move(field.path),
             .depth = field.depth,
             .is_required = field.is_required,
             .schema = field.schema};
    take_types(field, shapes_.read_union(different));
  } else {
    different.erase(different.begin());
  }
  std::vector<Form> forms = forms_of(field, different);
  if (field.values.empty()) unite_values(field, forms);
  add_forms(field, forms);
  put_into_words(field);
}

}  // namespace

Field read_input(const Node& schema, std::vector<Fault>& faults) {
  Field field = FieldReader(schema, "input schema", faults).read(schema);
  const auto may_be = [&field](const char* type) {
    const auto types = types_of(field);
    return std::ranges::find(types, type) != types.end();
  };
  if (may_be("object") || may_be("any")) {
    field.type = "object";
    field.types.clear();
  } else {
    const auto type = schema.find("type");
    faults.push_back(
        {.at = type ? *type : schema,
         .expected = "\"object\"",
         .found = type && type->kind() == Kind::string
                      ? registry_docs::in_quotes(type->string())
                      : registry_docs::in_quotes(registry_docs::excerpt(field.type))});
  }
  return field;
}

Field read_output(const Node& schema, std::vector<Fault>& faults) {
  return FieldReader(schema, "output schema", faults).read(schema);
}

}  // namespace json_schema
