// Joining texts.
#ifndef TEXT_JOIN_H
#define TEXT_JOIN_H

#include <functional>
#include <string>
#include <string_view>

namespace text {

// Has `append` append each item to `to`, and the separator stand between every two.
template <typename Items, typename Append>
void append_joined(std::string& to, const Items& items, std::string_view separator,
                   Append append) {
  bool is_first = true;
  for (const auto& item : items) {
    if (!is_first) to += separator;
    is_first = false;
    append(item);
  }
}

// What `piece` makes of each item, with the separator between every two.
template <typename Items, typename Piece = std::identity>
std::string join(const Items& items, std::string_view separator, Piece piece = {}) {
  std::string joined;
  append_joined(joined, items, separator,
                [&](const auto& item) { joined += std::invoke(piece, item); });
  return joined;
}

}  // namespace text

#endif  // TEXT_JOIN_H
