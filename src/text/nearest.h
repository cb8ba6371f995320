// The name that was probably meant.
#ifndef TEXT_NEAREST_H
#define TEXT_NEAREST_H

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace text {

// The candidate that differs from `name` least, empty when none is near: two bytes at most may
// be put in, taken away, changed or swapped with the next, and a third of the candidate's.
std::string_view nearest(std::string_view name, std::span<const std::string_view> candidates);

// Names that may have been meant, each for one other name.
class Guesses {
 public:
  // The names borrow from what must outlive this.
  explicit Guesses(std::vector<std::string_view> names) : names_(std::move(names)) {}

  // The nearest of the names that were not meant before; empty when none is near.
  std::string_view take(std::string_view name);

 private:
  std::vector<std::string_view> names_;
  std::size_t left_ = 20;  // each look goes through all names
};

}  // namespace text

#endif  // TEXT_NEAREST_H
