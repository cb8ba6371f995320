#include "gen_registry_docs/diff/common_lines.h"

#include <algorithm>

namespace gen_registry_docs::diff {
namespace {

// The shorter sequence runs along x and the longer one along y; the diagonal k holds the
// points with y - x = k. A path takes one step along an axis for each number without a
// partner, and follows its diagonal as long as the numbers are the same.
class Paths {
 public:
  Paths(std::span<const int> shorter, std::span<const int> longer)
      : shorter_(shorter),
        longer_(longer),
        diagonals_(shorter.size() + longer.size() + 3),
        delta_(static_cast<std::ptrdiff_t>(longer.size() - shorter.size())) {}

  // The ends of the parts of a shortest path, in order.
  struct Point {
    std::ptrdiff_t x;
    std::ptrdiff_t y;
    std::ptrdiff_t before;  // the part that leads here, if any
  };
  std::vector<Point> shortest() {
    const auto end = static_cast<std::ptrdiff_t>(longer_.size());
    for (std::ptrdiff_t p = 0; at(delta_).y != end; ++p) {
      for (std::ptrdiff_t k = -p; k < delta_; ++k) extend(k);
      for (std::ptrdiff_t k = delta_ + p; k > delta_; --k) extend(k);
      extend(delta_);
    }
    std::vector<Point> parts;
    for (auto part = at(delta_).part; part >= 0; part = parts.back().before) {
      parts.push_back(points_[static_cast<std::size_t>(part)]);
    }
    std::ranges::reverse(parts);
    return parts;
  }

 private:
  // How far the best path on a diagonal has come, and its last part.
  struct Diagonal {
    std::ptrdiff_t y = -1;
    std::ptrdiff_t part = -1;
  };

  Diagonal& at(std::ptrdiff_t k) {
    return diagonals_[static_cast<std::size_t>(k) + shorter_.size() + 1];
  }

  void extend(std::ptrdiff_t k) {
    const bool is_from_below = at(k - 1).y + 1 > at(k + 1).y;
    std::ptrdiff_t y = is_from_below ? at(k - 1).y + 1 : at(k + 1).y;
    std::ptrdiff_t x = y - k;
    while (is_same(x, y)) ++x, ++y;
    const std::ptrdiff_t before = is_from_below ? at(k - 1).part : at(k + 1).part;
    at(k) = {y, static_cast<std::ptrdiff_t>(points_.size())};
    points_.push_back({x, y, before});
  }

  [[nodiscard]] bool is_same(std::ptrdiff_t x, std::ptrdiff_t y) const {
    const auto i = static_cast<std::size_t>(x);
    const auto j = static_cast<std::size_t>(y);
    return i < shorter_.size() && j < longer_.size() && shorter_[i] == longer_[j];
  }

  std::span<const int> shorter_;
  std::span<const int> longer_;
  std::vector<Diagonal> diagonals_;
  std::ptrdiff_t delta_;
  std::vector<Point> points_ = {};
};

}  // namespace

std::vector<std::pair<std::size_t, std::size_t>> common_places(std::span<const int> left,
                                                               std::span<const int> right) {
  const bool is_swapped = left.size() >= right.size();
  const auto parts =
      is_swapped ? Paths(right, left).shortest() : Paths(left, right).shortest();
  std::vector<std::pair<std::size_t, std::size_t>> places;
  std::ptrdiff_t x = 0;
  std::ptrdiff_t y = 0;
  for (const Paths::Point& part : parts) {
    x = std::max(x, y - (part.y - part.x));
    y = std::max(y, x + (part.y - part.x));
    for (; x < part.x; ++x, ++y) {
      const auto i = static_cast<std::size_t>(is_swapped ? y : x);
      const auto j = static_cast<std::size_t>(is_swapped ? x : y);
      places.emplace_back(i, j);
    }
  }
  return places;
}

}  // namespace gen_registry_docs::diff
