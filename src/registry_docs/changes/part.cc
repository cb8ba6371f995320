#include "registry_docs/changes/part.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace registry_docs::changes {
namespace {

using json::Node;
using json_schema::Field;
using json_schema::Limit;
using Fields = std::vector<const Field*>;

Note note_of(const json_schema::Words& words) {
  const bool is_of_form = words.size() > 2 && words.front().text == "With ";
  Note note;
  for (std::size_t at = 0; at < words.size(); ++at) {
    note.text += words[at].text;
    if (!is_of_form || at != 1) note.rest += words[at].text;
  }
  return note;
}

std::string text_of(const json_schema::Remark& remark) {
  std::string text = std::string(remark.title) + '\n' + std::string(remark.description);
  return remark.default_value ? text + '\n' + remark.default_value->json() : text;
}

bool are_same(const std::vector<Node>& left, const std::vector<Node>& right) {
  return std::ranges::equal(left, right, {}, &Node::address, &Node::address);
}

std::unordered_set<std::string> spellings_of(const std::vector<Node>& values) {
  std::unordered_set<std::string> spellings;
  for (const Node& value : values) spellings.insert(value.json());
  return spellings;
}

// What is said twice limits no more.
std::vector<Limit> limits_of(const Field& field, bool are_of_items) {
  std::vector<Limit> limits;
  std::unordered_set<std::string> seen;
  for (const Limit& limit : field.limits) {
    if (limit.is_of_items != are_of_items) continue;
    if (!seen.insert(std::string(limit.keyword) + '=' + limit.value.json()).second) continue;
    limits.push_back(limit);
  }
  return limits;
}

Part own_part_of(const Field& field) {
  const auto types = json_schema::types_of(field);
  Part part{.path = field.path,
            .form = field.form,
            .is_property = !field.name.empty(),
            .is_required = field.is_required,
            .is_nullable = field.is_nullable,
            .is_deprecated = field.is_deprecated,
            .types = {types.begin(), types.end()},
            .title = field.title,
            .description = field.description,
            .default_value = field.default_value,
            .values = field.values,
            .limits = limits_of(field, false),
            .examples = field.examples};
  for (const auto& words : field.notes) part.notes.push_back(note_of(words));
  for (const auto& remark : field.remarks) part.remarks.push_back(text_of(remark));
  return part;
}

void add_title_of_items(Part& array, std::string_view title) {
  if (!title.empty()) array.remarks.push_back(std::string(title) + '\n');
}

// The items of an array as a part of their own.
Part& items_of(Part& array) {
  if (array.items.empty()) array.items.push_back({.path = array.path + "[]"});
  return array.items.front();
}

void add_items(Part& array, const Field& field) {
  array.items.push_back(part_of(field));
  Part& items = array.items.front();
  add_title_of_items(array, std::exchange(items.title, {}));
  items.types.clear();
  if (are_same(field.values, array.values)) {
    array.forms_say_values = items.forms_say_values;
    items.values.clear();
  }
  array.forms_say_types = items.forms_say_types && array.types.size() == 1;
}

// Puts the fields below where their paths lead from the one of the part.
void add_fields(Part& part, const Fields& fields) {
  Fields of_items;
  const std::string path_of_items = part.path + "[]";
  for (const Field* const field : fields) {
    const bool is_direct = part.path.empty() && field->path == field->name;
    if (field->path == part.path) {
      part.forms.push_back(part_of(*field));
    } else if (is_direct || !field->path.starts_with(path_of_items)) {
      part.parts.push_back(part_of(*field));
    } else if (field->path.size() == path_of_items.size() && part.items.empty()) {
      add_items(part, *field);
    } else {
      of_items.push_back(field);
    }
  }
  if (!of_items.empty()) add_fields(items_of(part), of_items);
}

// Whether places have parts, and nothing is said of the items behind them.
bool is_closed_tuple(const Part& array) {
  return array.items.empty() && array.types.size() == 1 &&
         std::ranges::any_of(array.parts, [&array](const Part& part) {
           return !part.is_property && part.path == array.path + "[0]";
         });
}

void note_what_forms_say(Part& part) {
  if (is_closed_tuple(part)) part.forms_say_types = true;
  if (part.forms.empty()) return;
  Types types;
  std::unordered_set<std::string> values;
  for (const Part& form : part.forms) {
    for (const std::string_view type : all_types(form)) {
      if (std::ranges::find(types, type) == types.end()) types.push_back(type);
    }
    values.merge(spellings_of(form.values));
    if (form.description == part.description) part.forms_say_description = true;
  }
  part.forms_say_types = are_same_types(types, all_types(part));
  part.forms_say_values = values == spellings_of(part.values);
}

template <typename T>
void append(std::vector<T>& to, std::vector<T>& more) {
  std::ranges::move(more, std::back_inserter(to));
}

void fold_form(Part& part, Part& form) {
  if (part.description.empty()) part.description = form.description;
  if (!part.default_value) part.default_value = form.default_value;
  part.is_deprecated = part.is_deprecated || form.is_deprecated;
  if (!form.title.empty()) part.remarks.push_back(std::string(form.title) + '\n');
  append(part.limits, form.limits);
  append(part.notes, form.notes);
  append(part.examples, form.examples);
  append(part.remarks, form.remarks);
  if (part.items.empty()) part.items = std::move(form.items);
}

// A part that several forms have takes the values of each.
void fold_parts(Part& part, Part& form, std::unordered_map<std::string, std::size_t>& places) {
  for (Part& within : form.parts) {
    const auto [place, is_new] = places.try_emplace(within.path, part.parts.size());
    if (is_new) {
      part.parts.push_back(std::move(within));
    } else {
      append(part.parts[place->second].values, within.values);
    }
  }
}

}  // namespace

Part part_of(const Field& field) {
  Part part = own_part_of(field);
  Fields fields;
  for (const Field& within : field.fields) fields.push_back(&within);
  add_fields(part, fields);
  if (field.has_nullable_items) items_of(part).is_nullable = true;
  if (auto limits = limits_of(field, true); !limits.empty()) {
    append(items_of(part).limits, limits);
  }
  note_what_forms_say(part);
  return part;
}

void fold_forms(Part& part) {
  std::unordered_map<std::string, std::size_t> places;
  for (std::size_t at = 0; at < part.parts.size(); ++at)
    places.emplace(part.parts[at].path, at);
  for (Part& form : part.forms) {
    if (!form.forms.empty()) fold_forms(form);
    fold_form(part, form);
    fold_parts(part, form, places);
  }
  part.forms.clear();
  part.forms_say_types = part.forms_say_values = part.forms_say_description = false;
}

Types all_types(const Part& part) {
  Types types = part.types;
  if (part.is_nullable) types.emplace_back("null");
  return types;
}

}  // namespace registry_docs::changes
