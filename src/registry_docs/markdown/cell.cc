#include <array>
#include <cstdint>
#include <cstring>

#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"
#include "registry_docs/text.h"
#include "text/white_space.h"

namespace registry_docs::markdown {
namespace {

// Whether a cell holds a character that stands behind `before` otherwise than it is.
bool changes(char before, char c) {
  return c < ' ' || c > '~' || c == '|' || (c == ' ' && before == ' ');
}

// As many bytes as one register of any processor holds. With so many looked at at once, a
// check of 10,000 tools takes 0.95 of the time.
using Bytes [[gnu::vector_size(16)]] = unsigned char;

Bytes bytes_at(const char* at) {
  Bytes bytes;
  std::memcpy(&bytes, at, sizeof bytes);
  return bytes;
}

// As `changes`, for the bytes at `at`, of which one stands before them.
bool any_changes(const char* at) {
  const Bytes before = bytes_at(at - 1);
  const Bytes bytes = bytes_at(at);
  const auto changed =
      (bytes < ' ') | (bytes > '~') | (bytes == '|') | ((bytes == ' ') & (before == ' '));
  std::array<std::uint64_t, 2> halves{};
  static_assert(sizeof halves == sizeof changed);
  std::memcpy(halves.data(), &changed, sizeof halves);
  return (halves[0] | halves[1]) != 0;
}

// Whether a cell holds the text as it is: ASCII without bars, its white space single blanks.
// `text` is stripped.
bool stays(std::string_view text) {
  if (text.empty()) return true;
  if (changes('\0', text[0])) return false;
  const char* at = text.data() + 1;
  const char* const end = text.data() + text.size();
  for (; end - at >= std::ptrdiff_t{sizeof(Bytes)}; at += sizeof(Bytes)) {
    if (any_changes(at)) return false;
  }
  // The last ones once more, rather than one by one.
  if (text.size() > sizeof(Bytes)) return !any_changes(end - sizeof(Bytes));
  for (; at < end; ++at) {
    if (changes(at[-1], *at)) return false;
  }
  return true;
}

bool is_graphic(char c) { return c > ' ' && c <= '~'; }

// The size of a beginning of `text` that a cell holds as it is. `text` is stripped, so that
// something follows each blank.
std::size_t unchanged_size(std::string_view text) {
  std::size_t size = 0;
  for (; size < text.size(); ++size) {
    const char c = text[size];
    if (c == '|') break;
    if (is_graphic(c) || (c == ' ' && is_graphic(text[size + 1]))) continue;
    if (text::white_space_size(text.substr(size)) != 0) break;
  }
  return size;
}

// `text` is stripped.
void append_changed(std::string& to, std::string_view text) {
  while (!text.empty()) {
    const std::size_t unchanged = unchanged_size(text);
    to += text.substr(0, unchanged);
    text.remove_prefix(unchanged);
    if (text.starts_with('|')) {
      to += "\\|";
      text.remove_prefix(1);
    } else if (!text.empty()) {
      to += ' ';
      while (const std::size_t size = text::white_space_size(text)) text.remove_prefix(size);
    }
  }
}

}  // namespace

void append_cell(std::string& to, std::string_view text) {
  text = strip(text);
  if (stays(text)) {
    to += text;
  } else {
    append_changed(to, text);
  }
}

void make_cell(std::string& text, std::size_t begin) {
  const std::string_view written = std::string_view(text).substr(begin);
  if (strip(written) == written && stays(written)) return;
  const std::string unsafe(written);
  text.resize(begin);
  append_cell(text, unsafe);
}

std::string cell(std::string_view text) {
  std::string made_safe;
  append_cell(made_safe, text);
  return made_safe;
}

}  // namespace registry_docs::markdown
