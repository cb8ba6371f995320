#include <utf8proc.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "registry_docs/text.h"
#include "text/code_point.h"

namespace registry_docs {
namespace {

bool is_plain(std::int32_t code_point) {
  switch (utf8proc_category(code_point)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:  // some reverse the text that follows
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
      return false;
    default:
      return true;
  }
}

void append_escape(std::string& text, std::int32_t code_point) {
  if (code_point == '\n') {
    text += "\\n";
    return;
  }
  const char* const format = code_point < 0x100     ? "\\x%02x"
                             : code_point < 0x10000 ? "\\u%04x"
                                                    : "\\U%08x";
  std::array<char, 16> escape{};
  static_cast<void>(
      std::snprintf(escape.data(), escape.size(), format, static_cast<unsigned>(code_point)));
  text += escape.data();
}

}  // namespace

std::string visible(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const text::CodePoint found = text::code_point_at(bytes, at);
    if (found.size == 0) {
      append_escape(text, static_cast<unsigned char>(bytes[at++]));
      continue;
    }
    if (is_plain(found.value)) {
      text += bytes.substr(at, found.size);
    } else {
      append_escape(text, found.value);
    }
    at += found.size;
  }
  return text;
}

}  // namespace registry_docs
