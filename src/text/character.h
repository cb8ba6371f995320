// The characters of a text that may hold any bytes.
#ifndef TEXT_CHARACTER_H
#define TEXT_CHARACTER_H

#include <cstddef>
#include <string_view>

#include "text/code_point.h"

namespace text {

// What counts as one character.
enum class Unit { code_point, byte };

struct Character {
  char32_t value;
  std::size_t size;  // in bytes, at least 1
};

// The character that begins at the byte `at`, which must lie inside `text`. Where code points
// are read, a byte that is no UTF-8 is a character of its own, different from every code
// point.
inline Character character_at(std::string_view text, std::size_t at, Unit unit) {
  constexpr char32_t beyond_code_points = 0x110000;
  const auto byte = static_cast<unsigned char>(text[at]);
  if (unit == Unit::byte || byte < 0x80) return {byte, 1};
  const CodePoint found = code_point_at(text, at);
  if (found.size == 0) return {beyond_code_points + byte, 1};
  return {static_cast<char32_t>(found.value), found.size};
}

}  // namespace text

#endif  // TEXT_CHARACTER_H
