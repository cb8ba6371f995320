#include "gen_registry_docs/formats/list.h"

#include <algorithm>
#include <array>

#include "gen_registry_docs/formats/state_name.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::formats {
namespace {

using Row = std::array<std::string, 4>;
using Widths = std::array<std::size_t, 4>;

// In code points.
std::size_t width(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::vector<Row> rows(const std::vector<registry_docs::FileReport>& files) {
  std::vector<Row> made = {{"FILE", "BLOCK", "LINE", "STATE"}};
  for (const registry_docs::FileReport& file : files) {
    for (const registry_docs::BlockReport& block : file.blocks) {
      made.push_back({file.path, registry_docs::visible(block.name),
                      block.line == 0 ? "-" : std::to_string(block.line),
                      state_name(block.state)});
    }
  }
  return made;
}

Widths widths(const std::vector<Row>& rows) {
  Widths widest{};
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      widest[i] = std::max(widest[i], width(row[i]));
  }
  return widest;
}

void append_row(std::string& to, const Row& row, const Widths& widths) {
  for (std::size_t i = 0; i < row.size(); ++i) {
    const bool is_number = i == 2;
    const std::string padding(widths[i] - width(row[i]), ' ');
    to += is_number ? padding + row[i] : row[i];
    if (i + 1 == row.size()) break;
    to += is_number ? "  " : padding + "  ";
  }
  to += '\n';
}

}  // namespace

std::string block_list(const std::vector<registry_docs::FileReport>& files) {
  const std::vector<Row> all = rows(files);
  const Widths widest = widths(all);
  std::string table;
  for (const Row& row : all) append_row(table, row, widest);
  return table;
}

}  // namespace gen_registry_docs::formats
