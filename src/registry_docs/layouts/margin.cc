#include "registry_docs/layouts/margin.h"

#include <algorithm>
#include <array>

#include "text/ascii.h"

namespace registry_docs::layouts {
namespace {

constexpr std::size_t tab = 4;
constexpr std::size_t most_columns = 50 * tab;  // which no tab goes beyond

bool is_blank(char c) { return c == ' ' || c == '\t'; }

// The length of the mark of a list with which the line begins, without the blank behind it; 0
// without one.
std::size_t list_mark(std::string_view line) {
  constexpr std::size_t most_digits = 9;
  std::size_t length = 0;
  while (length < std::min(line.size(), most_digits) && text::is_digit(line[length])) ++length;
  const std::string_view marks = length == 0 ? "-*+" : ".)";
  if (length + 1 >= line.size() || marks.find(line[length]) == std::string_view::npos)
    return 0;
  return is_blank(line[length + 1]) ? length + 1 : 0;
}

std::size_t margin_of(std::string_view line) {
  std::size_t column = 0;
  while (!line.empty() && column < most_columns) {
    std::size_t taken = 1;
    if (is_blank(line[0])) {
      column += line[0] == '\t' ? tab - column % tab : 1;
    } else {
      taken = list_mark(line);
      if (taken == 0) break;
      column += taken;
    }
    line.remove_prefix(taken);
  }
  return std::min(column, most_columns);
}

bool is_empty_line(std::string_view line) { return line == "\n" || line == "\r\n"; }

}  // namespace

std::size_t Margin::at_end_of(std::string_view text) {
  const std::size_t line_end = text.substr(seen_).rfind('\n');
  if (line_end != std::string_view::npos) line_ = seen_ + line_end + 1;
  seen_ = text.size();
  return margin_of(text.substr(line_));
}

std::string_view blanks(std::size_t column) {
  static constexpr auto all = [] {
    std::array<char, most_columns> filled{};
    filled.fill(' ');
    return filled;
  }();
  return {all.data(), column};
}

void indent_lines(std::string& text, std::size_t begin, std::string_view blanks) {
  const std::size_t first_end = text.find('\n', begin);
  if (first_end == std::string::npos || blanks.empty()) return;
  const std::string lines = text.substr(first_end + 1);
  text.resize(first_end + 1);
  append_indented(text, lines, blanks, true);
}

void append_indented(std::string& to, std::string_view text, std::string_view indent,
                     bool begins_line) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line =
        text.substr(0, end == std::string_view::npos ? end : end + 1);
    if (begins_line && !is_empty_line(line)) to += indent;
    to += line;
    text.remove_prefix(line.size());
    begins_line = true;
  }
}

}  // namespace registry_docs::layouts
