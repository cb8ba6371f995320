#include "gen_registry_docs/nearest.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>
#include <vector>

namespace gen_registry_docs {
namespace {

constexpr std::size_t most = 2;

// The least number of bytes to put in, take away or change to make one of the other.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

bool is_near(std::string_view name, std::string_view candidate) {
  const std::size_t limit = std::min(most, candidate.size() / 3);
  const auto [shorter, longer] = std::minmax({name.size(), candidate.size()});
  return longer - shorter <= limit && distance(name, candidate) <= limit;
}

}  // namespace

std::string_view nearest(std::string_view name, std::span<const std::string_view> candidates) {
  std::string_view found;
  for (const std::string_view candidate : candidates) {
    if (!is_near(name, candidate)) continue;
    if (found.empty() || distance(name, candidate) < distance(name, found)) found = candidate;
  }
  return found;
}

}  // namespace gen_registry_docs
