#include "registry_docs/markdown/loosen.h"

#include <cstddef>
#include <optional>

namespace registry_docs::markdown {
namespace {

using Place = std::optional<std::size_t>;  // of an item

struct Item {
  std::size_t line;
  std::size_t column;  // where its text begins
  Place parent = {};
  Place before = {};      // the one before it in its list
  bool is_loose = false;  // a blank line stands between two of its parts
  bool has_gap = false;   // or within one of them
};

class Lists {
 public:
  explicit Lists(std::span<const TidyLine> lines) : lines_(lines) {
    for (std::size_t i = 0; i < lines_.size(); ++i) take(i);
  }

  [[nodiscard]] std::vector<bool> to_part() const {
    std::vector<bool> found(lines_.size());
    for (const Item& item : items_) {
      const bool is_apart = item.before   ? items_[*item.before].has_gap
                            : item.parent ? items_[*item.parent].is_loose
                                          : false;
      found[item.line] = is_apart && !is_behind_gap(item.line);
    }
    return found;
  }

 private:
  [[nodiscard]] bool is_behind_gap(std::size_t line) const {
    return line > 0 && lines_[line - 1].line.text.empty();
  }

  void take(std::size_t number) {
    const auto& [line, is_code] = lines_[number];
    if (line.text.empty() || is_code) return;
    Place before;
    while (innermost_ && items_[*innermost_].column > line.indent) {
      before = innermost_;
      innermost_ = items_[*innermost_].parent;
      if (innermost_ && items_[*before].has_gap) items_[*innermost_].has_gap = true;
    }
    const std::size_t mark = list_mark_size(line.text);
    const bool goes_on = mark != 0 && before;
    if (innermost_ && is_behind_gap(number)) {
      items_[*innermost_].has_gap = true;
      if (!goes_on) items_[*innermost_].is_loose = true;
    }
    if (mark == 0) return;
    items_.push_back({number, line.indent + mark + 1, innermost_, before});
    innermost_ = items_.size() - 1;
  }

  std::span<const TidyLine> lines_;
  std::vector<Item> items_;
  Place innermost_;
};

}  // namespace

std::vector<bool> lines_to_part(std::span<const TidyLine> lines) {
  return Lists(lines).to_part();
}

}  // namespace registry_docs::markdown
