#include "registry_docs/catalog/literals.h"

#include <algorithm>
#include <array>
#include <vector>

#include "registry_docs/text.h"

namespace registry_docs::catalog {
namespace {

// Whether a text, as it is, would be read as another kind of value, or not be seen whole.
bool misleads(std::string_view text) {
  if (text.empty() || strip(text).size() != text.size()) return true;
  constexpr std::array<std::string_view, 3> words = {"null", "true", "false"};
  if (std::ranges::find(words, text) != words.end()) return true;
  constexpr std::string_view beginnings = "0123456789-\"[{";
  if (beginnings.find(text.front()) == std::string_view::npos) return false;
  const bool is_number = text.find_first_not_of("0123456789.eE+-") == std::string_view::npos;
  return is_number || text.front() == '"' || text.front() == '[' || text.front() == '{';
}

std::vector<std::string_view> literals_of(const std::vector<json::Node>& values,
                                          std::deque<std::string>& texts) {
  std::vector<std::string_view> literals;
  literals.reserve(values.size());
  for (const json::Node& value : values) literals.push_back(literal_of(value, texts));
  return literals;
}

}  // namespace

std::string_view literal_of(const json::Node& value, std::deque<std::string>& texts) {
  if (value.kind() == json::Kind::string && !misleads(value.string())) return value.string();
  return texts.emplace_back(value.json());
}

void add_literals(json_schema::Field& field, std::deque<std::string>& texts) {
  if (field.default_value) field.default_literal = literal_of(*field.default_value, texts);
  field.value_literals = literals_of(field.values, texts);
  field.example_literals = literals_of(field.examples, texts);
  for (json_schema::Remark& remark : field.remarks) {
    if (!remark.default_value) continue;
    remark.default_literal = literal_of(*remark.default_value, texts);
  }
  for (json_schema::Field& each : field.fields) add_literals(each, texts);
}

}  // namespace registry_docs::catalog
