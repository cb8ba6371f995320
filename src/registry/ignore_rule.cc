#include "registry/ignore_rule.h"

#include <utility>

namespace registry {
namespace {

constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";

// All of the text, if it lacks the character.
std::string_view up_to(std::string_view text, char character) {
  return text.substr(0, text.find(character));
}

bool take(std::string_view& text, char first) {
  if (!text.starts_with(first)) return false;
  text.remove_prefix(1);
  return true;
}

// One that is escaped stays.
std::string_view without_blanks_at_end(std::string_view line) {
  std::size_t end = 0;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '\\')
      ++at;
    else if (line[at] == ' ')
      continue;
    end = at + 1;
  }
  return line.substr(0, end);
}

// `line` begins with no "#".
std::optional<IgnoreRule> rule_of(std::string_view line) {
  std::string_view pattern = without_blanks_at_end(line);
  IgnoreRule rule;
  rule.is_inclusion = take(pattern, '!');
  rule.is_of_directories = pattern.ends_with('/');
  if (rule.is_of_directories) pattern.remove_suffix(1);
  rule.is_of_names = pattern.find('/') == std::string_view::npos;
  take(pattern, '/');
  if (pattern.empty()) return std::nullopt;
  rule.beginning = pattern.substr(0, pattern.find_first_of(R"(*?[\)"));
  pattern.remove_prefix(rule.beginning.size());
  if (pattern.empty()) return rule;
  // Read by itself, as git reads it, so that "a**/b" is "a" and then "**/b".
  rule.rest = text::parse_glob(pattern, text::Unit::byte);
  return rule.rest ? std::optional(std::move(rule)) : std::nullopt;
}

}  // namespace

std::vector<IgnoreRule> ignore_rules(std::string_view bytes) {
  std::vector<IgnoreRule> rules;
  if (bytes.starts_with(byte_order_mark)) bytes.remove_prefix(byte_order_mark.size());
  while (!bytes.empty()) {
    std::string_view line = up_to(bytes, '\n');
    bytes.remove_prefix(line.size());
    take(bytes, '\n');
    if (line.starts_with('#')) continue;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (auto rule = rule_of(up_to(line, '\0'))) rules.push_back(*std::move(rule));
  }
  return rules;
}

bool is_of(const IgnoreRule& rule, std::string_view path, bool is_directory) {
  if (rule.is_of_directories && !is_directory) return false;
  if (rule.is_of_names) path.remove_prefix(path.rfind('/') + 1);
  if (!path.starts_with(rule.beginning)) return false;
  path.remove_prefix(rule.beginning.size());
  return rule.rest ? text::fits(path, *rule.rest) : path.empty();
}

}  // namespace registry
