#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"
#include "registry_docs/text.h"
#include "registry_docs/text/white_space.h"

namespace registry_docs::markdown {
namespace {

// Of a byte's size, so that many fit into one register.
using Flag = unsigned char;

Flag is_blank(char c) { return c == ' ' ? 1 : 0; }

// Whether a cell holds the text as it is: ASCII without bars, its white space single blanks.
// `text` is stripped, so that its last character is no blank. Without branches and byte by
// byte, so that the compiler has it look at many bytes at once.
bool stays(std::string_view text) {
  Flag changes = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    changes = static_cast<Flag>(changes | (byte < ' ') | (byte > '~') | (byte == '|'));
  }
  for (std::size_t i = 1; i < text.size(); ++i) {
    changes = static_cast<Flag>(changes | (is_blank(text[i - 1]) & is_blank(text[i])));
  }
  return changes == 0;
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
  if (stays(written) && strip(written) == written) return;
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
