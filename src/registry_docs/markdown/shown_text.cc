#include "registry_docs/markdown/shown_text.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/code_point.h"
#include "text/line_endings.h"
#include "text/visible.h"

namespace registry_docs::markdown {
namespace {

constexpr char32_t zero_width_non_joiner = 0x200C;
constexpr char32_t zero_width_joiner = 0x200D;

bool is_shown_ascii(char c) { return (c >= ' ' && c <= '~') || c == '\n' || c == '\t'; }

// Looks at all of them, so that the compiler can look at many at once.
bool are_shown_ascii(std::string_view few) {
  unsigned char is_other = 0;
  for (const char c : few) is_other |= static_cast<unsigned char>(is_shown_ascii(c) ? 0 : 1);
  return is_other == 0;
}

std::size_t end_of_shown_ascii(std::string_view text, std::size_t from) {
  constexpr std::size_t few = 64;
  while (text.size() - from >= few && are_shown_ascii(text.substr(from, few))) from += few;
  while (from < text.size() && is_shown_ascii(text[from])) ++from;
  return from;
}

bool is_shown(text::CodePoint character) {
  if (character.size == 0) return false;
  const auto value = static_cast<char32_t>(character.value);
  return value == zero_width_non_joiner || value == zero_width_joiner ||
         !text::is_hidden(character.value);
}

// The offset of the first character at or after `from` that is not shown, or the size.
std::size_t find_hidden(std::string_view text, std::size_t from) {
  for (;;) {
    from = end_of_shown_ascii(text, from);
    if (from == text.size() || text::is_ascii(text[from])) return from;
    const text::CodePoint character = text::code_point_at(text, from);
    if (!is_shown(character)) return from;
    from += character.size;
  }
}

}  // namespace

std::string_view shown_text(std::string_view text, std::string& room) {
  std::size_t hidden = find_hidden(text, 0);
  if (hidden == text.size()) return text;
  const std::string source = text::with_line_feeds(std::string(text));
  room.clear();
  for (std::size_t at = 0; at < source.size();) {
    hidden = find_hidden(source, at);
    room.append(source, at, hidden - at);
    if (hidden == source.size()) break;
    const text::CodePoint found = text::code_point_at(source, hidden);
    text::append_escape(
        room, found.size == 0 ? static_cast<unsigned char>(source[hidden]) : found.value);
    at = hidden + std::max<std::size_t>(found.size, 1);
  }
  return room;
}

}  // namespace registry_docs::markdown
