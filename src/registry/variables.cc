#include "registry/variables.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "registry_docs/text.h"
#include "text/ascii.h"

namespace registry {
namespace {

struct Variable {
  std::string_view name = {};  // empty where there is none
  bool has_fallback = false;
  std::string_view fallback = {};
};

bool is_name(std::string_view text) {
  if (text.empty() || text::is_digit(text[0])) return false;
  return std::ranges::all_of(text,
                             [](char c) { return text::is_letter_or_digit(c) || c == '_'; });
}

// The variable between the braces.
Variable variable_in(std::string_view content) {
  const std::size_t end = content.find(":-");
  const std::string_view name = content.substr(0, end);
  if (!is_name(name)) return {};
  if (end == std::string_view::npos) return {.name = name};
  return {.name = name, .has_fallback = true, .fallback = content.substr(end + 2)};
}

std::string value_of(const json::Node& declared, const Variable& variable,
                     std::vector<Secret>& secrets) {
  const std::string name(variable.name);
  const char* const found = std::getenv(name.c_str());
  const bool is_set = found != nullptr && (*found != '\0' || !variable.has_fallback);
  if (is_set) return secrets.emplace_back(Secret{name, found}).value;
  if (variable.has_fallback) return std::string(variable.fallback);
  declared.refuse("the variable " + name + " to be set", "it is not");
}

}  // namespace

std::string text_of(const json::Node& declared, Variables variables,
                    std::vector<Secret>& secrets) {
  std::string_view text = declared.string();
  if (text.find('\0') != std::string_view::npos) {
    declared.refuse("a text without NUL characters", "one");
  }
  if (variables == Variables::kept) return std::string(text);
  std::string replaced;
  while (!text.empty()) {
    const std::size_t begin = std::min(text.find("${"), text.size());
    const std::size_t end = text.find('}', begin);
    replaced += text.substr(0, begin);
    text.remove_prefix(begin);
    const Variable variable = end == std::string_view::npos
                                  ? Variable()
                                  : variable_in(text.substr(2, end - begin - 2));
    if (variable.name.empty()) {
      replaced += text.substr(0, 1);
      text.remove_prefix(text.empty() ? 0 : 1);
      continue;
    }
    replaced += value_of(declared, variable, secrets);
    text.remove_prefix(end - begin + 1);
  }
  return replaced;
}

std::string without(std::span<const Secret> secrets, std::string text) {
  constexpr std::size_t shortest = 3;
  for (const auto& [variable, value] : secrets) {
    if (value.size() < shortest) continue;
    const std::string shown = "${" + variable + "}";
    for (const std::string& each : {value, registry_docs::visible(value)}) {
      for (std::size_t at = text.find(each); at != std::string::npos;
           at = text.find(each, at + shown.size())) {
        text.replace(at, each.size(), shown);
      }
    }
  }
  return text;
}

}  // namespace registry
