// The elements of two lists that stand for the same.
#ifndef REGISTRY_DOCS_CHANGES_PAIRS_H
#define REGISTRY_DOCS_CHANGES_PAIRS_H

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <vector>

namespace registry_docs::changes {

// Each may be null, but not both.
template <typename Element>
struct Pair {
  Element* before = nullptr;
  Element* after = nullptr;
};

// Those with the same key, and of several with one key the first with the first. In the order
// before; behind it stands what is new. A list is a vector, const or not.
template <typename List, typename KeyOf>
auto pairs_of(List& before, List& after, KeyOf key_of) {
  using Element = std::remove_reference_t<decltype(before.front())>;
  std::unordered_map<std::string_view, std::vector<std::size_t>> places;
  for (std::size_t at = after.size(); at-- > 0;) {
    places[std::invoke(key_of, after[at])].push_back(at);
  }
  std::vector<Pair<Element>> pairs;
  std::vector<bool> is_new(after.size(), true);
  for (Element& element : before) {
    pairs.push_back({.before = &element});
    const auto found = places.find(std::invoke(key_of, element));
    if (found == places.end() || found->second.empty()) continue;
    pairs.back().after = &after[found->second.back()];
    is_new[found->second.back()] = false;
    found->second.pop_back();
  }
  for (std::size_t at = 0; at < after.size(); ++at) {
    if (is_new[at]) pairs.push_back({.after = &after[at]});
  }
  return pairs;
}

// Whether those that stand in both lists stand there in the same order.
template <typename Element>
bool are_in_order(const std::vector<Pair<Element>>& pairs) {
  const Element* last = nullptr;
  return std::ranges::all_of(pairs, [&last](const Pair<Element>& pair) {
    if (pair.before == nullptr || pair.after == nullptr) return true;
    const bool is_behind = last == nullptr || last < pair.after;
    last = pair.after;
    return is_behind;
  });
}

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_PAIRS_H
