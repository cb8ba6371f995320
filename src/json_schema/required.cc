#include "json_schema/required.h"

#include <algorithm>
#include <string>
#include <utility>

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

void put_in_order(Names& names) {
  std::ranges::sort(names);
  names.erase(std::unique(names.begin(), names.end()), names.end());
}

// Of one schema, unless it says anything else.
std::optional<Names> required_alone(const Node& schema) {
  if (schema.kind() != Kind::object) return std::nullopt;
  Names names;
  bool is_alone = true;
  schema.for_each_member([&](std::string_view keyword, const Node& member) {
    if (keyword == "required" && member.kind() == Kind::array) {
      member.for_each_element([&](const Node& name) {
        if (name.kind() == Kind::string) names.push_back(name.string());
      });
    } else {
      is_alone = is_alone && keyword == "type" && member.json() == "\"object\"";
    }
  });
  if (!is_alone || names.empty()) return std::nullopt;
  put_in_order(names);
  return names;
}

// Whether a part of an object is one of its properties, not within one.
bool is_property_of(const Field& object, const Field& part) {
  const std::size_t size_of_path = object.path.empty() ? 0 : object.path.size() + 1;
  return !part.name.empty() && part.path.size() == size_of_path + part.name.size();
}

}  // namespace

bool holds(const Names& names, std::string_view name) {
  constexpr std::size_t few = 8;  // most differ in size, which is seen at once
  if (names.size() > few) return std::ranges::binary_search(names, name);
  return std::ranges::find(names, name) != names.end();
}

Names required_by(std::span<const Holding> all, Walk& walk) {
  Names names;
  for (const Holding& each : all) {
    const MaybeNode& required = each.parts[Keyword::required];
    if (!required || !walk.require(*required, Kind::array)) continue;
    required->for_each_element([&](const Node& name) {
      if (walk.require(name, Kind::string)) names.push_back(name.string());
    });
  }
  put_in_order(names);
  return names;
}

void add_names(Words& words, const Names& names, const std::string& last) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) words.push_back({.text = i + 1 < names.size() ? ", " : " " + last + " "});
    words.push_back({.text = std::string(names[i]), .is_code = true});
  }
}

std::optional<std::vector<Names>> required_by_each(const Node& schemas) {
  std::vector<Names> all;
  bool is_all = true;
  schemas.for_each_element([&](const Node& schema) {
    auto names = required_alone(schema);
    is_all = is_all && names;
    if (names) all.push_back(std::move(*names));
  });
  if (!is_all || all.empty()) return std::nullopt;
  return all;
}

std::optional<Words> choice_of(const std::vector<Names>& choices, Choice kind) {
  if (std::ranges::any_of(choices, &Names::empty)) return std::nullopt;
  if (std::ranges::all_of(choices, [](const Names& names) { return names.size() == 1; })) {
    Words words = {{.text = kind == Choice::exactly_one ? "Exactly one of " : "One of "}};
    Names names;
    for (const Names& choice : choices) names.push_back(choice.front());
    add_names(words, names, "or");
    words.push_back({.text = " is required."});
    return words;
  }
  Words words = {
      {.text = kind == Choice::exactly_one ? "Required is either " : "Required is "}};
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (i > 0) words.push_back({.text = ", or "});
    add_names(words, choices[i], "and");
  }
  words.push_back({.text = "."});
  return words;
}

void tell_required(Field& field, const Names& required) {
  if (required.empty()) return;
  Names known;
  known.reserve(field.fields.size());
  const auto mark = [&](Field& part) {
    if (!is_property_of(field, part)) return;
    part.is_required = part.is_required || holds(required, part.name);
    if (part.is_required) known.push_back(part.name);
  };
  for (Field& part : field.fields) {
    mark(part);
    if (!part.form.empty()) std::ranges::for_each(part.fields, mark);
  }
  put_in_order(known);
  for (const std::string_view name : required) {
    if (holds(known, name)) continue;
    field.notes.push_back(
        {{.text = std::string(name), .is_code = true}, {.text = " is required."}});
  }
}

}  // namespace json_schema
