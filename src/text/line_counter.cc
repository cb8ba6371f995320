#include <cstdint>
#include <limits>

#include "registry_docs/text.h"

namespace registry_docs {
namespace {

// So few that a byte counts them, and the compiler can count many at once.
std::uint8_t count_few(std::string_view text) {
  std::uint8_t count = 0;
  for (const char c : text) count = static_cast<std::uint8_t>(count + (c == '\n' ? 1 : 0));
  return count;
}

}  // namespace

std::size_t LineCounter::line_of(const char* place) {
  constexpr std::size_t few = std::numeric_limits<std::uint8_t>::max();
  std::string_view passed(at_, static_cast<std::size_t>(place - at_));
  for (; !passed.empty(); passed.remove_prefix(std::min(few, passed.size()))) {
    line_ += count_few(passed.substr(0, few));
  }
  at_ = place;
  return line_;
}

}  // namespace registry_docs
