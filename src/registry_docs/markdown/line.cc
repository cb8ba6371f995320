#include "registry_docs/markdown/line.h"

#include <algorithm>
#include <span>

#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;

bool ends_or_is_blank(std::string_view line, std::size_t at) {
  return at >= line.size() || text::is_blank_or_line_feed(line[at]);
}

bool is_blank(const Line& line) { return line.text.empty(); }

std::vector<Line> split(std::string_view text) {
  std::vector<Line> lines;
  while (!text.empty()) {
    const std::size_t line_feed = std::min(text.find('\n'), text.size());
    const std::string_view whole = text.substr(0, line_feed);
    const Indent indent = indent_of(whole);
    lines.push_back({.whole = whole,
                     .text = text::trimmed(whole, text::is_blank),
                     .indent = indent.columns});
    text.remove_prefix(std::min(line_feed + 1, text.size()));
  }
  return lines;
}

}  // namespace

std::size_t list_mark_size(std::string_view line) {
  constexpr std::size_t most_digits = 9;
  if (line.empty()) return 0;
  if (std::string_view("-+*").find(line[0]) != npos) return ends_or_is_blank(line, 1) ? 1 : 0;
  std::size_t digits = 0;
  while (digits < line.size() && text::is_digit(line[digits])) ++digits;
  if (digits == 0 || digits > most_digits || digits == line.size()) return 0;
  const bool is_number = line[digits] == '.' || line[digits] == ')';
  return is_number && ends_or_is_blank(line, digits + 1) ? digits + 1 : 0;
}

bool is_heading(std::string_view line) {
  constexpr std::size_t most_levels = 6;
  const std::size_t level = std::min(line.find_first_not_of('#'), line.size());
  return level > 0 && level <= most_levels && ends_or_is_blank(line, level);
}

LineKind kind_of(std::string_view line) {
  if (is_heading(line) || line.starts_with('|') || line.starts_with('>')) {
    return LineKind::whole;
  }
  constexpr std::string_view bullet = "•";
  const bool is_item = list_mark_size(line) != 0 ||
                       (line.starts_with(bullet) && ends_or_is_blank(line, bullet.size()));
  return is_item ? LineKind::item : LineKind::prose;
}

Indent indent_of(std::string_view line, std::size_t most) {
  constexpr std::size_t tab = 4;
  Indent indent;
  while (indent.size < line.size() && indent.columns < most &&
         text::is_blank(line[indent.size])) {
    indent.columns += line[indent.size] == '\t' ? tab - indent.columns % tab : 1;
    ++indent.size;
  }
  return indent;
}

std::vector<Line> lines_of(std::string_view text) {
  std::vector<Line> lines = split(text);
  if (lines.empty()) return lines;
  std::size_t indent = npos;
  for (const Line& line : std::span(lines).subspan(1)) {
    if (!is_blank(line)) indent = std::min(indent, line.indent);
  }
  lines[0].indent = indent == npos ? 0 : indent;
  while (!lines.empty() && is_blank(lines.back())) lines.pop_back();
  lines.erase(lines.begin(), std::ranges::find_if_not(lines, is_blank));
  return lines;
}

}  // namespace registry_docs::markdown
