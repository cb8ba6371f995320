#include "registry_docs/markdown/shown_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "text/ascii.h"
#include "text/code_point.h"
#include "text/line_endings.h"
#include "text/visible.h"

namespace registry_docs::markdown {
namespace {

constexpr char32_t zero_width_non_joiner = 0x200C;
constexpr char32_t zero_width_joiner = 0x200D;

bool is_shown_ascii(char c) { return (c >= ' ' && c <= '~') || c == '\n' || c == '\t'; }

// Whether eight characters are all ASCII from " " to "~". Adding sets the highest bit of a
// byte from 0x7F on, and so does taking away of one below 0x20, unless one before it borrowed,
// when this is only too careful.
bool are_shown_ascii(const char* at) {
  constexpr std::uint64_t each = 0x0101010101010101;
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, at, sizeof bytes);
  return ((bytes | (bytes + each) | (bytes - each * ' ')) & (each << 7)) == 0;
}

std::size_t end_of_shown_ascii(std::string_view text, std::size_t from) {
  for (;;) {
    while (text.size() - from >= 8 && are_shown_ascii(text.data() + from)) from += 8;
    const std::size_t end = std::min(from + 8, text.size());
    while (from < end && is_shown_ascii(text[from])) ++from;
    if (from < end || from == text.size()) return from;
  }
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
