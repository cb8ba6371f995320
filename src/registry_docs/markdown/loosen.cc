#include "registry_docs/markdown/loosen.h"

#include <algorithm>
#include <utility>

namespace registry_docs::markdown {

// Only at its end is it known whether the parts of an item stand apart.
Looseness::Item Looseness::close() {
  const Item item = open_.back();
  open_.pop_back();
  const auto own = lists_.begin() + static_cast<std::ptrdiff_t>(item.lists);
  if (item.is_loose) to_part_.insert(to_part_.end(), own, lists_.end());
  lists_.erase(own, lists_.end());
  if (!open_.empty() && item.has_gap) open_.back().has_gap = true;
  return item;
}

// The outermost item that ends before a line of that indent, if any does.
std::optional<Looseness::Item> Looseness::close_beyond(std::size_t indent) {
  std::optional<Item> closed;
  while (!open_.empty() && open_.back().column > indent) closed = close();
  return closed;
}

void Looseness::begin_item(std::size_t column, const std::optional<Item>& before,
                           bool is_after_gap, std::size_t offset) {
  if (!is_after_gap && before && before->has_gap) to_part_.push_back(offset);
  if (!is_after_gap && !before && !open_.empty()) lists_.push_back(offset);
  open_.push_back({.column = column, .lists = lists_.size()});
}

void Looseness::take(const Line& line, std::size_t offset) {
  if (line.text.empty()) {
    is_after_gap_ = true;
    return;
  }
  const bool is_after_gap = std::exchange(is_after_gap_, false);
  const std::optional<Item> before = close_beyond(line.indent);
  const std::size_t mark = list_mark_size(line.text);
  if (is_after_gap && !open_.empty()) {
    open_.back().has_gap = true;
    if (mark == 0 || !before) open_.back().is_loose = true;
  }
  if (mark != 0) begin_item(line.indent + mark + 1, before, is_after_gap, offset);
}

std::vector<std::size_t> Looseness::lines_to_part() && {
  while (!open_.empty()) close();
  std::ranges::sort(to_part_);
  return std::move(to_part_);
}

}  // namespace registry_docs::markdown
