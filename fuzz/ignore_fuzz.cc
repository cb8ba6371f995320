// Of any .gitignore and any path: each line says what it says alone, lines may end in CR LF,
// and a path that is escaped is a rule of that path.
#include <string>

#include "fuzz/target.h"
#include "registry/ignore_rule.h"

namespace registry_docs::fuzz {
namespace {

using registry::IgnoreRule;

// What the rules say of the path, in order: one character for each that is of it.
std::string verdicts(std::string_view rules, std::string_view path) {
  std::string found;
  for (const IgnoreRule& rule : registry::ignore_rules(rules)) {
    if (registry::is_of(rule, path, true)) found += rule.is_inclusion ? '!' : '+';
  }
  return found;
}

std::string with_carriage_returns(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

std::string verdicts_by_line(std::string_view rules, std::string_view path) {
  std::string found;
  std::istringstream lines{std::string(rules)};
  for (std::string line; std::getline(lines, line);) found += verdicts(line, path);
  return found;
}

std::string escaped(std::string_view path) {
  std::string pattern = "/";
  for (const char c : path) {
    if (c != '/') pattern += '\\';
    pattern += c;
  }
  return pattern;
}

bool can_be_spelled(std::string_view path) {
  const bool has_end =
      path.find_first_of(std::string_view("\n\r\0", 3)) != std::string_view::npos;
  return !path.empty() && !has_end && !path.starts_with('/') && !path.ends_with('/');
}

}  // namespace

void run(std::string_view input) {
  std::istringstream parts{std::string(input)};
  const std::string rules = next_part(parts);
  const std::string path = next_part(parts);
  const std::string found = verdicts(rules, path);
  if (rules.find("\xef\xbb\xbf") == std::string::npos) {  // which a line may begin with
    require(verdicts_by_line(rules, path) == found, "the same of each line", found);
  }
  if (rules.find('\r') == std::string::npos) {  // of which one at the end of a line would stay
    require(verdicts(with_carriage_returns(rules), path) == found, "the same with CR LF",
            found);
  }
  if (can_be_spelled(path)) {
    require(verdicts(escaped(path), path) == "+", "a rule of its own path", path);
  }
}

}  // namespace registry_docs::fuzz
