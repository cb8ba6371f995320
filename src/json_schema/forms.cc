#include "json_schema/forms.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "json_schema/annotations.h"
#include "json_schema/walk.h"

namespace json_schema {
namespace {

using json::Kind;
using json::Node;

template <typename T>
void append(std::vector<T>& to, std::vector<T>&& more) {
  if (to.empty()) {
    to = std::move(more);
  } else {
    std::ranges::move(more, std::back_inserter(to));
  }
}

// Whether a form says more than types and values.
bool says_more(const Field& form) {
  return !form.description.empty() || form.default_value || !form.examples.empty() ||
         !form.limits.empty() || !form.fields.empty() || !form.remarks.empty() ||
         !form.notes.empty() || form.is_deprecated || form.has_nullable_items;
}

bool is_number(const std::string& type) { return type == "integer" || type == "number"; }

bool overlap(const std::string& type, const std::string& other) {
  return type == other || type == "any" || other == "any" ||
         (is_number(type) && is_number(other)) ||
         (type.ends_with("[]") && other.ends_with("[]"));
}

bool overlap(const Field& form, const Field& other) {
  return std::ranges::any_of(types_of(form), [&](const std::string& type) {
    return std::ranges::any_of(types_of(other),
                               [&](const std::string& each) { return overlap(type, each); });
  });
}

// A default is that of the form alone, and so is what null stands for.
bool can_fold(const Field& field, const Field& form) {
  return form.type != "null" && !form.default_value && !form.is_deprecated &&
         form.remarks.empty() &&
         (field.description.empty() || form.description.empty() ||
          field.description == form.description);
}

std::string spelled(const Node& value) {
  return value.kind() == Kind::string ? std::string(value.string()) : value.json();
}

// Whether more than its type and a number tells a form from others.
bool is_named(const Field& form) { return !form.form.starts_with(form.type); }

// "With `Get`, `id` is required."
Words note_of(const Field& form, const Names& names) {
  Words words = {{.text = "With "}, {.text = form.form, .is_code = true}, {.text = ", "}};
  add_names(words, names, "and");
  words.push_back({.text = names.size() > 1 ? " are required." : " is required."});
  return words;
}

// Whether a form says nothing but what parameters there are.
bool is_of_parameters(const Form& form) {
  const auto is_object = [](const std::string& type) {
    return type == "object" || type == "any";
  };
  const auto is_closing = [](const Limit& limit) {
    return limit.keyword == "additionalProperties";
  };
  return !form.field.is_deprecated && std::ranges::all_of(types_of(form.field), is_object) &&
         std::ranges::all_of(form.field.limits, is_closing);
}

bool can_fold(const Field& field, const std::vector<Form>& forms) {
  const Form* speaker = nullptr;
  for (const Form& form : forms) {
    if (!says_more(form.field)) continue;
    if (speaker != nullptr || !can_fold(field, form.field)) return false;
    speaker = &form;
  }
  return speaker == nullptr || std::ranges::none_of(forms, [speaker](const Form& form) {
           return &form != speaker && overlap(speaker->field, form.field);
         });
}

void fold(Field& field, std::vector<Form>& forms) {
  for (auto& [form, required] : forms) {
    add_remark(field, {.title = form.title});
    if (field.description.empty()) field.description = form.description;
    field.has_nullable_items = field.has_nullable_items || form.has_nullable_items;
    field.is_cut = field.is_cut || form.is_cut;
    append(field.examples, std::move(form.examples));
    append(field.limits, std::move(form.limits));
    append(field.notes, std::move(form.notes));
    append(field.fields, std::move(form.fields));
  }
}

}  // namespace

std::string label_of(const Field& form, const Node& schema) {
  if (!form.title.empty()) return std::string(form.title);
  if (const auto reference =
          schema.kind() == Kind::object ? schema.find("$ref") : std::nullopt;
      reference && reference->kind() == Kind::string) {
    return referenced_name(*reference);
  }
  if (form.values.size() == 1) return spelled(form.values.front());
  for (const Field& field : form.fields) {
    if (!field.name.empty() && field.form.empty() && field.values.size() == 1) {
      return std::string(field.name) + ": " + spelled(field.values.front());
    }
  }
  return form.type;
}

void tell_apart(std::vector<Form>& forms) {
  std::unordered_map<std::string, std::size_t> all;
  for (const Form& form : forms) ++all[form.field.form];
  std::unordered_map<std::string, std::size_t> seen;
  for (auto& [form, required] : forms) {
    if (all[form.form] > 1) form.form += " " + std::to_string(++seen[form.form]);
  }
}

Names common_names(const std::vector<Form>& forms) {
  Names common = forms.front().required;
  for (const Form& form : forms) {
    std::erase_if(common, [&](std::string_view name) { return !holds(form.required, name); });
  }
  return common;
}

void note_required(Field& field, const std::vector<Form>& forms, const Names& in_any_case) {
  std::vector<Names> choices;
  bool are_named = false;
  for (const Form& form : forms) {
    Names& names = choices.emplace_back(form.required);
    std::erase_if(names, [&](std::string_view name) { return holds(in_any_case, name); });
    are_named = are_named || is_named(form.field);
  }
  auto note = are_named ? std::nullopt : choice_of(choices, Choice::any);
  if (note) field.notes.push_back(std::move(*note));
  for (std::size_t i = 0; i < forms.size() && !note; ++i) {
    if (!choices[i].empty()) field.notes.push_back(note_of(forms[i].field, choices[i]));
  }
}

bool are_of_parameters(const std::vector<Form>& forms) {
  return std::ranges::all_of(forms, is_of_parameters);
}

void gather(Field& field, std::vector<Form>& forms) {
  for (auto& [form, of_form] : forms) {
    add_remark(field, {form.title, form.description, form.default_value});
    append(field.notes, std::move(form.notes));
    append(field.remarks, std::move(form.remarks));
    append(field.examples, std::move(form.examples));
    append(field.limits, std::move(form.limits));
    field.is_cut = field.is_cut || form.is_cut;
  }
}

void unite_values(Field& field, const std::vector<Form>& forms) {
  std::vector<Node> values;
  for (const Form& form : forms) {
    values.insert(values.end(), form.field.values.begin(), form.field.values.end());
  }
  unite(field.values, values);  // at once, as each time looks at all
}

void deepen(Field& field) {
  ++field.depth;
  std::ranges::for_each(field.fields, deepen);
}

void add_forms(Field& field, std::vector<Form>& forms) {
  if (can_fold(field, forms)) {
    for (auto& [form, required] : forms) tell_required(form, required);
    return fold(field, forms);
  }
  tell_apart(forms);
  for (auto& [form, required] : forms) {
    tell_required(form, required);
    if (field.description.empty() && form.type != "null") field.description = form.description;
    deepen(form);
    field.fields.push_back(std::move(form));
  }
}

bool can_fold_items(const Field& items) {
  return items.description.empty() && !items.default_value && items.examples.empty() &&
         items.remarks.empty() && items.notes.empty() && !items.is_deprecated &&
         !items.has_nullable_items && std::ranges::none_of(items.limits, &Limit::is_of_items);
}

void fold_items(Field& array, Field&& items) {
  add_remark(array, {.title = items.title});
  array.has_nullable_items = items.is_nullable;
  array.is_cut = array.is_cut || items.is_cut;
  for (Limit& limit : items.limits) {
    limit.is_of_items = true;
    array.limits.push_back(limit);
  }
  append(array.fields, std::move(items.fields));
}

}  // namespace json_schema
