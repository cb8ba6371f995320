#include "registry_docs/markdown/anchor.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdint>

#include "registry_docs/text.h"
#include "text/ascii.h"
#include "text/code_point.h"

namespace registry_docs::markdown {
namespace {

constexpr std::int32_t capital_i_with_dot = 0x130;
constexpr std::int32_t capital_sigma = 0x3A3;
constexpr std::int32_t final_sigma = 0x3C2;
constexpr std::int32_t dot_above = 0x307;

bool is_between(std::int32_t value, std::int32_t first, std::int32_t last) {
  return first <= value && value <= last;
}

// Letters in circles and squares, which Unicode calls symbols and alphabetic.
bool is_enclosed_letter(std::int32_t code_point) {
  return is_between(code_point, 0x24B6, 0x24E9) || is_between(code_point, 0x1F130, 0x1F149) ||
         is_between(code_point, 0x1F150, 0x1F169) || is_between(code_point, 0x1F170, 0x1F189);
}

bool is_roman_numeral(std::int32_t code_point) {
  return is_between(code_point, 0x2160, 0x217F);
}

// Whether an anchor holds the character, which stands in lower case.
bool is_kept(std::int32_t code_point) {
  switch (utf8proc_category(code_point)) {
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
    case UTF8PROC_CATEGORY_PC:
      return true;
    case UTF8PROC_CATEGORY_NO:
      return false;
    default:
      return text::is_letter_or_number(code_point) || is_enclosed_letter(code_point);
  }
}

// Whether the character has a case.
bool is_cased(std::int32_t code_point) {
  switch (utf8proc_category(code_point)) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
      return true;
    default:
      return is_enclosed_letter(code_point) || is_roman_numeral(code_point) ||
             code_point == 0xAA || code_point == 0xBA;  // ordinal indicators
  }
}

// Whether a character may stand within a word and has no part in its case.
bool is_ignored(std::int32_t code_point) {
  switch (utf8proc_category(code_point)) {
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_ME:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_SK:
      return true;
    default:
      return std::u32string_view(U"'.:\u00B7\u0387\u2018\u2019\u2024\u2027")
                 .find(static_cast<char32_t>(code_point)) != std::u32string_view::npos;
  }
}

// Whether a word with a case goes on at the beginning of the text.
bool goes_on(std::string_view text) {
  while (!text.empty()) {
    const text::CodePoint next = text::code_point_at(text, 0);
    if (next.size == 0 || !is_ignored(next.value)) return is_cased(next.value);
    text.remove_prefix(next.size);
  }
  return false;
}

// As all of most tools' names.
bool is_kept_as_it_is(char c) {
  return (c >= 'a' && c <= 'z') || text::is_digit(c) || c == '_' || c == '-';
}

void append_character(std::string& to, std::int32_t code_point) {
  if (code_point == ' ' || code_point == '-') {
    to += '-';
  } else if (is_kept(code_point)) {
    append_code_point(to, static_cast<char32_t>(code_point));
  }
}

// The letters, numbers, marks and connectors of the text, in lower case, with hyphens for
// blanks.
std::string anchor_of(std::string_view text) {
  if (std::ranges::all_of(text, is_kept_as_it_is)) return std::string(text);
  std::string anchor;
  bool is_in_word = false;
  for (std::size_t at = 0; at < text.size();) {
    const auto [value, size] = text::code_point_at(text, at);
    if (size == 0) break;
    at += size;
    if (value == capital_sigma && is_in_word && !goes_on(text.substr(at))) {
      append_character(anchor, final_sigma);
    } else {
      append_character(anchor, utf8proc_tolower(value));
      if (value == capital_i_with_dot) append_character(anchor, dot_above);
    }
    is_in_word = is_cased(value) || (is_in_word && is_ignored(value));
  }
  return anchor;
}

}  // namespace

std::string Anchors::next(std::string_view heading) {
  const std::string first = anchor_of(heading);
  std::string anchor = first;
  while (seen_.contains(anchor)) anchor = first + '-' + std::to_string(++seen_[first]);
  seen_.emplace(anchor, 0);
  return anchor;
}

}  // namespace registry_docs::markdown
