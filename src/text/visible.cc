#include "text/visible.h"

#include <utf8proc.h>

#include <array>
#include <cstdio>

#include "registry_docs/text.h"
#include "text/code_point.h"

namespace text {

bool is_hidden(std::int32_t code_point) {
  switch (utf8proc_category(code_point)) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:  // some reverse the text that follows
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
      return true;
    default:
      return false;
  }
}

void append_escape(std::string& to, std::int32_t code_point) {
  if (code_point == '\n') {
    to += "\\n";
    return;
  }
  const char* const format = code_point < 0x100     ? "\\x%02x"
                             : code_point < 0x10000 ? "\\u%04x"
                                                    : "\\U%08x";
  std::array<char, 16> escape{};
  static_cast<void>(
      std::snprintf(escape.data(), escape.size(), format, static_cast<unsigned>(code_point)));
  to += escape.data();
}

}  // namespace text

namespace registry_docs {

std::string visible(std::string_view bytes) {
  std::string shown;
  shown.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const text::CodePoint found = text::code_point_at(bytes, at);
    if (found.size == 0) {
      text::append_escape(shown, static_cast<unsigned char>(bytes[at++]));
      continue;
    }
    if (text::is_hidden(found.value)) {
      text::append_escape(shown, found.value);
    } else {
      shown += bytes.substr(at, found.size);
    }
    at += found.size;
  }
  return shown;
}

}  // namespace registry_docs
