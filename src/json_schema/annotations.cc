#include "json_schema/annotations.h"

#include <string>
#include <unordered_set>
#include <utility>

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

std::string_view text_of(const MaybeNode& given, Walk& walk) {
  return given && walk.require(*given, Kind::string) ? given->string() : std::string_view();
}

// What is said first is shown; anything else is a remark.
void tell(std::string_view given, std::string_view& shown, std::string_view& remark) {
  if (shown.empty()) {
    shown = given;
  } else if (given != shown) {
    remark = given;
  }
}

void tell_default(const MaybeNode& given, Field& field, Remark& remark) {
  if (!given) return;
  if (!field.default_value) {
    field.default_value = given;
  } else if (given->json() != field.default_value->json()) {
    remark.default_value = given;
  }
}

void add_elements(const Node& list, std::vector<Node>& to) {
  list.for_each_element([&to](const Node& element) { to.push_back(element); });
}

void add_examples(const Parts& parts, Field& field) {
  if (const MaybeNode& examples = parts[Keyword::examples]) {
    if (examples->kind() == Kind::array) {
      add_elements(*examples, field.examples);
    } else {
      field.examples.push_back(*examples);
    }
  }
  if (const MaybeNode& example = parts[Keyword::example]) field.examples.push_back(*example);
}

// Some servers say in a text what to use instead.
void read_deprecated(const Parts& parts, Field& field) {
  const MaybeNode& deprecated = parts[Keyword::deprecated];
  if (!deprecated) return;
  if (deprecated->kind() == Kind::boolean) {
    field.is_deprecated = field.is_deprecated || deprecated->boolean();
  } else {
    field.is_deprecated = true;
    field.limits.push_back({.keyword = "deprecated", .value = *deprecated});
  }
}

std::unordered_set<std::string> spellings_of(const std::vector<Node>& values) {
  std::unordered_set<std::string> spellings;
  for (const Node& value : values) spellings.insert(value.json());
  return spellings;
}

// Where several schemas list values, those of all are left; the first list where none is.
void intersect(std::vector<Node>& values, std::vector<Node> listed) {
  if (values.empty()) {
    values = std::move(listed);
    return;
  }
  const auto allowed = spellings_of(listed);
  std::vector<Node> common;
  for (const Node& value : values) {
    if (allowed.contains(value.json())) common.push_back(value);
  }
  if (!common.empty()) values = std::move(common);
}

void add_values(const Parts& parts, Field& field) {
  const MaybeNode& listed = parts[Keyword::enumeration];
  if (listed && listed->kind() == Kind::array) {
    std::vector<Node> values;
    values.reserve(listed->size());
    add_elements(*listed, values);
    intersect(field.values, std::move(values));
  }
  if (const MaybeNode& constant = parts[Keyword::constant])
    intersect(field.values, {*constant});
}

}  // namespace

void annotate(Field& field, const Parts& parts, Walk& walk) {
  Remark remark;
  tell(text_of(parts[Keyword::title], walk), field.title, remark.title);
  tell(text_of(parts[Keyword::description], walk), field.description, remark.description);
  tell_default(parts[Keyword::default_value], field, remark);
  add_remark(field, remark);
  read_deprecated(parts, field);
  add_examples(parts, field);
  add_values(parts, field);
  add_limits(parts, walk, field.limits);
}

void unite(std::vector<Node>& values, const std::vector<Node>& more) {
  if (more.empty()) return;
  auto seen = spellings_of(values);
  for (const Node& value : more) {
    if (seen.insert(value.json()).second) values.push_back(value);
  }
}

void add_remark(Field& field, const Remark& remark) {
  if (remark.title.empty() && remark.description.empty() && !remark.default_value) return;
  field.remarks.push_back(remark);
}

}  // namespace json_schema
