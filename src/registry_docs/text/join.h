// Joining texts.
#ifndef REGISTRY_DOCS_TEXT_JOIN_H
#define REGISTRY_DOCS_TEXT_JOIN_H

#include <concepts>
#include <functional>
#include <string>
#include <string_view>

namespace registry_docs::text {

// What `piece` makes of each item, with the separator between every two.
template <typename Items, typename Piece = std::identity>
std::string join(const Items& items, std::string_view separator, Piece piece = {}) {
  std::string joined;
  if constexpr (std::same_as<Piece, std::identity>) {
    std::size_t size = 0;
    for (const std::string_view item : items) size += item.size() + separator.size();
    joined.reserve(size);
  }
  bool first = true;
  for (const auto& item : items) {
    if (!first) joined += separator;
    first = false;
    joined += std::invoke(piece, item);
  }
  return joined;
}

}  // namespace registry_docs::text

#endif  // REGISTRY_DOCS_TEXT_JOIN_H
