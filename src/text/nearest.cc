#include "text/nearest.h"

#include <algorithm>
#include <cstddef>

namespace text {
namespace {

constexpr std::size_t most = 2;

// Whether so many edits make one of the other. Takes time in proportion to the shorter one.
bool is_within(std::string_view from, std::string_view to, std::size_t edits) {
  const auto [at, other] = std::ranges::mismatch(from, to);
  const auto same = static_cast<std::size_t>(at - from.begin());
  from.remove_prefix(same);
  to.remove_prefix(same);
  if (from.empty() && to.empty()) return true;
  if (edits == 0) return false;
  const auto behind = [](std::string_view text, std::size_t count) {
    return text.substr(std::min(count, text.size()));
  };
  const bool is_swapped =
      from.size() > 1 && to.size() > 1 && from[0] == to[1] && from[1] == to[0];
  return is_within(behind(from, 1), behind(to, 1), edits - 1) ||
         is_within(behind(from, 1), to, edits - 1) ||
         is_within(from, behind(to, 1), edits - 1) ||
         (is_swapped && is_within(behind(from, 2), behind(to, 2), edits - 1));
}

}  // namespace

std::string_view nearest(std::string_view name, std::span<const std::string_view> candidates) {
  for (std::size_t edits = 0; edits <= most; ++edits) {
    const auto found = std::ranges::find_if(candidates, [&](std::string_view candidate) {
      return edits <= candidate.size() / 3 && is_within(name, candidate, edits);
    });
    if (found != candidates.end()) return *found;
  }
  return {};
}

std::string_view Guesses::take(std::string_view name) {
  if (left_ == 0) return {};
  --left_;
  const std::string_view meant = nearest(name, names_);
  std::erase(names_, meant);
  return meant;
}

}  // namespace text
