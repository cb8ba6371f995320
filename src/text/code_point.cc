#include "text/code_point.h"

#include <utf8proc.h>

#include "registry_docs/text.h"
#include "text/ascii.h"

namespace text {
namespace {

char ascii_upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

bool is_letter_or_number(std::int32_t code_point) {
  switch (utf8proc_category(code_point)) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_NO:
      return true;
    default:
      return false;
  }
}

std::string capitalised(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const bool is_first = at == 0;
    if (static_cast<unsigned char>(text[at]) < 0x80) {
      result += is_first ? ascii_upper(text[at]) : lower(text[at]);
      ++at;
      continue;
    }
    const CodePoint found = code_point_at(text, at);
    if (found.size == 0) break;
    const utf8proc_int32_t mapped =
        is_first ? utf8proc_toupper(found.value) : utf8proc_tolower(found.value);
    registry_docs::append_code_point(result, static_cast<char32_t>(mapped));
    at += found.size;
  }
  return result;
}

}  // namespace text
