// Blank lines between the items of lists.
#ifndef REGISTRY_DOCS_MARKDOWN_LOOSEN_H
#define REGISTRY_DOCS_MARKDOWN_LOOSEN_H

#include <cstddef>
#include <optional>
#include <vector>

#include "registry_docs/markdown/line.h"

namespace registry_docs::markdown {

// Finds the lines before which a blank line is lacking: those that begin an item after one
// that holds a blank line, or a list in an item whose parts stand apart.
class Looseness {
 public:
  // The next line of the text, at that offset.
  void take(const Line& line, std::size_t offset);
  void take_code() { is_after_gap_ = false; }

  // After the last line: the offsets of those lines, in order.
  std::vector<std::size_t> lines_to_part() &&;

 private:
  // An item whose end has not come yet.
  struct Item {
    std::size_t column;     // where its text begins
    std::size_t lists;      // where its own begin among the beginnings of lists
    bool is_loose = false;  // a blank line stands between two of its parts
    bool has_gap = false;   // or within one of them
  };

  Item close();
  std::optional<Item> close_beyond(std::size_t indent);
  void begin_item(std::size_t column, const std::optional<Item>& before, bool is_after_gap,
                  std::size_t offset);

  std::vector<Item> open_;          // each within the one before it
  std::vector<std::size_t> lists_;  // the first lines of lists within open items
  std::vector<std::size_t> to_part_;
  bool is_after_gap_ = false;
};

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_LOOSEN_H
