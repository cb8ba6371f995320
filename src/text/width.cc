#include "text/width.h"

#include <utf8proc.h>

#include <algorithm>

#include "text/ascii.h"
#include "text/code_point.h"

namespace text {
namespace {

constexpr std::int32_t zero_width_joiner = 0x200D;
constexpr std::int32_t keycap = 0x20E3;
constexpr std::int32_t emoji_style = 0xFE0F;

bool is_pictograph(std::int32_t value) {
  return utf8proc_get_property(value)->boundclass == UTF8PROC_BOUNDCLASS_EXTENDED_PICTOGRAPHIC;
}

bool is_regional(std::int32_t value) { return value >= 0x1F1E6 && value <= 0x1F1FF; }

bool is_tone(std::int32_t value) { return value >= 0x1F3FB && value <= 0x1F3FF; }

// Takes the character that the text begins with, if it is one of these.
template <typename Predicate>
bool take(std::string_view& text, Predicate is_meant) {
  if (text.empty()) return false;
  const CodePoint first = code_point_at(text, 0);
  if (first.size == 0 || !is_meant(first.value)) return false;
  text.remove_prefix(first.size);
  return true;
}

bool take(std::string_view& text, std::int32_t value) {
  return take(text, [value](std::int32_t found) { return found == value; });
}

// What makes another picture of the one before it.
void take_pictograph_end(std::string_view& text) {
  take(text, emoji_style);
  take(text, is_tone);
  for (std::string_view joined = text; take(joined, zero_width_joiner);) {
    if (!take(joined, is_pictograph)) return;
    take(joined, emoji_style);
    take(joined, is_tone);
    text = joined;
  }
}

// Takes the emoji of several characters that the text begins with.
bool take_sequence(std::string_view& text) {
  std::string_view rest = text;
  const bool may_be_key = is_digit(text[0]) || text[0] == '#' || text[0] == '*';
  if (may_be_key) {
    rest.remove_prefix(1);
    take(rest, emoji_style);
    if (!take(rest, keycap)) return false;
  } else if (take(rest, is_regional)) {
    if (!take(rest, is_regional)) return false;
  } else if (take(rest, is_pictograph)) {
    const std::size_t before = rest.size();
    take_pictograph_end(rest);
    if (rest.size() == before) return false;
  } else {
    return false;
  }
  text = rest;
  return true;
}

std::size_t width_of(std::int32_t value) {
  switch (utf8proc_category(value)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_ME:
      return 0;
    default:
      return utf8proc_charwidth(value) == 2 ? 2 : 1;
  }
}

}  // namespace

std::size_t width(std::string_view text) {
  if (std::ranges::all_of(text, is_ascii)) return text.size();
  std::size_t columns = 0;
  while (!text.empty()) {
    if (take_sequence(text)) {
      columns += 2;
      continue;
    }
    const CodePoint first = code_point_at(text, 0);
    columns += width_of(first.value);
    text.remove_prefix(std::max<std::size_t>(first.size, 1));
  }
  return columns;
}

}  // namespace text
