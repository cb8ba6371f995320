// Classes of ASCII characters, whatever the locale.
#ifndef TEXT_ASCII_H
#define TEXT_ASCII_H

#include <string_view>

namespace text {

constexpr bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

constexpr bool is_digit(char c) { return c >= '0' && c <= '9'; }

constexpr bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

constexpr bool is_letter_or_digit(char c) { return is_letter(c) || is_digit(c); }

constexpr char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool is_blank(char c) { return c == ' ' || c == '\t'; }

constexpr bool is_blank_or_line_feed(char c) { return is_blank(c) || c == '\n'; }

// `text` without what is so at its ends.
template <typename Is>
constexpr std::string_view trimmed(std::string_view text, Is is) {
  while (!text.empty() && is(text.front())) text.remove_prefix(1);
  while (!text.empty() && is(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace text

#endif  // TEXT_ASCII_H
