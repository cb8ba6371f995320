#include "json/escapes.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace json {
namespace {

// The number that four hexadecimal digits at `at` spell, of an escape that begins at `escape`.
char32_t code_unit(const Source& source, const char* at, const char* escape) {
  const char* const source_end = source.json.data() + source.json.size();
  const std::ptrdiff_t size = std::min<std::ptrdiff_t>(4, source_end - at);
  unsigned value = 0;
  const auto [end, error] = std::from_chars(at, at + size, value, 16);
  if (end - at != 4) {
    refuse_syntax(source, escape, "four hexadecimal digits after \\u");
  }
  return value;
}

Escape read_code_point(const Source& source, const char* escape) {
  const char* const second = escape + 6;  // where that of a pair begins
  const char32_t high = code_unit(source, escape + 2, escape);
  if (high < 0xD800 || high > 0xDBFF) return {.code_point = high, .end = second};
  if (second[0] != '\\' || second[1] != 'u') {
    refuse_syntax(source, escape, "a pair of surrogates");
  }
  const char32_t low = code_unit(source, second + 2, escape);
  if (low < 0xDC00 || low > 0xDFFF) refuse_syntax(source, escape, "a pair of surrogates");
  return {.code_point = 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00), .end = second + 6};
}

// What the letter after a backslash stands for, or NUL where it stands for nothing.
char short_escape(char letter) {
  switch (letter) {
    case '"':
    case '\\':
    case '/':
      return letter;
    case 'b':
      return '\b';
    case 'f':
      return '\f';
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    default:
      return '\0';
  }
}

}  // namespace

Escape read_escape(const Source& source, const char* at) {
  if (at[1] == 'u') return read_code_point(source, at);
  const char meaning = short_escape(at[1]);
  if (meaning == '\0') refuse_syntax(source, at, escape_or_character);
  return {.code_point = static_cast<char32_t>(meaning), .end = at + 2};
}

}  // namespace json
