#include "registry_docs/markdown/align_table.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "text/ascii.h"
#include "text/width.h"

namespace registry_docs::markdown {
namespace {

using Cells = std::vector<std::string_view>;

constexpr std::size_t npos = std::string_view::npos;
constexpr std::size_t narrowest = 3;

// The next bar that ends a cell: none behind a backslash does.
std::size_t find_bar(std::string_view row, std::size_t from) {
  std::size_t at = row.find('|', from);
  while (at != npos && at > 0 && row[at - 1] == '\\') at = row.find('|', at + 1);
  return at;
}

Cells cells_of(std::string_view row) {
  Cells cells;
  for (std::size_t begin = 1; begin < row.size();) {
    const std::size_t end = std::min(find_bar(row, begin), row.size());
    cells.push_back(text::trimmed(row.substr(begin, end - begin), text::is_blank));
    begin = end + 1;
  }
  return cells;
}

bool is_rule(const Cells& cells) {
  return !cells.empty() && std::ranges::all_of(cells, [](std::string_view cell) {
    if (cell.starts_with(':')) cell.remove_prefix(1);
    if (cell.ends_with(':')) cell.remove_suffix(1);
    return !cell.empty() && cell.find_first_not_of('-') == npos;
  });
}

std::vector<std::size_t> widths_of(std::span<const Cells> rows) {
  std::vector<std::size_t> widths(rows[0].size(), narrowest);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t column = 0; column < widths.size(); ++column) {
      if (i == 1 || column >= rows[i].size()) continue;
      widths[column] = std::max(widths[column], text::width(rows[i][column]));
    }
  }
  return widths;
}

// Behind half of the blanks, or all of them, as the column's rule wants it.
void append_cell_of(std::string& to, std::string_view cell, std::size_t width,
                    std::string_view rule) {
  const std::size_t blanks = width - text::width(cell);
  const bool is_right = rule.ends_with(':');
  const bool is_centred = is_right && rule.starts_with(':');
  const std::size_t before = is_centred ? blanks / 2 : is_right ? blanks : 0;
  to.append(" ").append(before, ' ').append(cell).append(blanks - before, ' ').append(" |");
}

void append_rule(std::string& to, std::string_view rule, std::size_t width) {
  const bool begins = rule.starts_with(':');
  const bool ends = rule.ends_with(':');
  to.append(" ").append(begins ? ":" : "").append(width - begins - ends, '-');
  to.append(ends ? ":" : "").append(" |");
}

// Tables without a line between header and rows, or with rows of other lengths, stay.
bool is_table(std::span<const Cells> rows) {
  const auto is_as_long = [&](const Cells& row) { return row.size() == rows[0].size(); };
  return rows.size() > 1 && is_rule(rows[1]) && std::ranges::all_of(rows, is_as_long);
}

}  // namespace

void append_table(std::string& to, std::span<const Line> rows) {
  std::vector<Cells> cells;
  cells.reserve(rows.size());
  for (const Line& row : rows) cells.push_back(cells_of(row.text));
  if (!is_table(cells)) {
    for (const Line& row : rows) to.append(row.whole).append("\n");
    return;
  }
  const std::vector<std::size_t> widths = widths_of(cells);
  const std::string_view first = rows[0].whole;
  const std::string_view indent = first.substr(0, first.find('|'));
  for (std::size_t i = 0; i < cells.size(); ++i) {
    to.append(indent).append("|");
    for (std::size_t column = 0; column < widths.size(); ++column) {
      const std::string_view rule = cells[1][column];
      if (i == 1) {
        append_rule(to, rule, widths[column]);
      } else {
        append_cell_of(to, cells[i][column], widths[column], rule);
      }
    }
    to += '\n';
  }
}

}  // namespace registry_docs::markdown
