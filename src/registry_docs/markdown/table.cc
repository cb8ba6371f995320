#include "registry_docs/markdown.h"
#include "registry_docs/text/join.h"

namespace registry_docs::markdown {

std::string row(std::span<const std::string> cells) {
  return "| " + text::join(cells, " | ") + " |";
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
