#include "registry_docs/markdown.h"

namespace registry_docs::markdown {

std::string row(std::span<const std::string> cells) {
  if (cells.empty()) return "|  |";
  std::size_t size = 1;
  for (const std::string& cell : cells) size += cell.size() + 3;
  std::string line;
  line.reserve(size);
  line += '|';
  for (const std::string& cell : cells) {
    line += ' ';
    line += cell;
    line += " |";
  }
  return line;
}

std::vector<std::string> table(const std::vector<std::string>& header,
                               std::span<const std::vector<std::string>> rows) {
  std::vector<std::string> lines;
  lines.reserve(rows.size() + 2);
  lines.push_back(row(header));
  lines.push_back(row(std::vector<std::string>(header.size(), "---")));
  for (const std::vector<std::string>& cells : rows) lines.push_back(row(cells));
  return lines;
}

}  // namespace registry_docs::markdown
