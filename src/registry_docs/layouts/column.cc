#include "registry_docs/layouts/column.h"

#include <algorithm>
#include <array>

namespace registry_docs::layouts {
namespace {

constexpr std::size_t tab = 4;
constexpr std::size_t most_columns = 50 * tab;  // which no tab goes beyond

bool continues_a_code_point(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::size_t width_of(char c, std::size_t column) {
  if (c == '\t') return tab - column % tab;
  return continues_a_code_point(c) ? 0 : 1;
}

bool is_empty_line(std::string_view line) { return line == "\n" || line == "\r\n"; }

}  // namespace

std::size_t Column::at_end_of(std::string_view text) {
  std::string_view added = text.substr(seen_);
  seen_ = text.size();
  const std::size_t line_end = added.rfind('\n');
  if (line_end != std::string_view::npos) {
    added.remove_prefix(line_end + 1);
    column_ = 0;
  }
  for (const char c : added) {
    if (column_ >= most_columns) break;
    column_ += width_of(c, column_);
  }
  return column_;
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
