#include "gen_registry_docs/advice/wrong_count.h"

#include <algorithm>
#include <set>

namespace gen_registry_docs::advice {
namespace {

bool is_right(const Number& number, std::size_t count) {
  return number.value == count || (number.is_at_least && number.value < count);
}

bool is_near(std::size_t value, std::size_t count) {
  return value < count ? value >= count - count / 2 : value - count <= count;
}

// Whether numbers less than the count are of some of the tools.
bool tell_of_some(std::span<const Number> numbers, std::size_t count) {
  std::set<std::size_t> less;
  for (const Number& number : numbers) {
    if (is_right(number, count)) return true;
    if (number.value < count) less.insert(number.value);
  }
  return less.size() > 1;
}

}  // namespace

std::optional<std::size_t> wrong_count(std::span<const Number> numbers, std::size_t count) {
  const bool are_of_some = tell_of_some(numbers, count);
  const auto found = std::ranges::find_if(numbers, [&](const Number& number) {
    return !is_right(number, count) && is_near(number.value, count) &&
           !(are_of_some && number.value < count);
  });
  if (found == numbers.end()) return std::nullopt;
  return static_cast<std::size_t>(found - numbers.begin());
}

}  // namespace gen_registry_docs::advice
