#include "text/white_space.h"

#include "registry_docs/text.h"

namespace text {
namespace {

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool is_ascii_white_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r') || (c >= '\x1c' && c <= '\x1f');
}

// White space of three bytes: U+1680, U+2000 to U+200A, U+2028, U+2029, U+202F, U+205F
// and U+3000.
bool is_wide_white_space(std::string_view bytes) {
  if (bytes == "\u1680" || bytes == "\u205F" || bytes == "\u3000") return true;
  if (!bytes.starts_with("\xE2\x80")) return false;
  const auto last = static_cast<unsigned char>(bytes[2]);
  return last <= 0x8A || last == 0xA8 || last == 0xA9 || last == 0xAF;
}

// The size of the white-space character that `text` ends with, or 0.
std::size_t trailing_white_space_size(std::string_view text) {
  if (text.empty()) return 0;
  if (is_ascii(text.back())) return is_ascii_white_space(text.back()) ? 1 : 0;
  for (std::size_t size = 2; size <= 3 && size <= text.size(); ++size) {
    if (white_space_size(text.substr(text.size() - size)) == size) return size;
  }
  return 0;
}

}  // namespace

std::size_t white_space_size(std::string_view text) {
  if (text.empty()) return 0;
  if (is_ascii(text[0])) return is_ascii_white_space(text[0]) ? 1 : 0;
  if (text.starts_with("\u0085") || text.starts_with("\u00A0")) return 2;
  if (text.size() >= 3 && is_wide_white_space(text.substr(0, 3))) return 3;
  return 0;
}

}  // namespace text

namespace registry_docs {

std::string_view strip(std::string_view text) {
  while (const std::size_t size = text::white_space_size(text)) text.remove_prefix(size);
  while (const std::size_t size = text::trailing_white_space_size(text)) {
    text.remove_suffix(size);
  }
  return text;
}

}  // namespace registry_docs
