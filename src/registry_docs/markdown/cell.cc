#include "registry_docs/markdown.h"
#include "registry_docs/text.h"
#include "registry_docs/text/white_space.h"

namespace registry_docs::markdown {
namespace {

// Whether a cell holds what stands at `at` as it is. `text` is stripped, so that a blank
// always has a character behind it.
bool stays(std::string_view text, std::size_t at) {
  const char c = text[at];
  if (c > ' ') return c != '|';
  if (c == ' ') return text::white_space_size(text.substr(at + 1)) == 0;
  return text::white_space_size(text.substr(at)) == 0;
}

// Appends the cell text of what begins with a character that does not stay.
void append_changed(std::string& cell, std::string_view text) {
  bool in_white_space = false;
  while (!text.empty()) {
    const std::size_t size = text::white_space_size(text);
    if (size == 0) {
      if (text[0] == '|') cell += '\\';
      cell += text[0];
    } else if (!in_white_space) {
      cell += ' ';
    }
    in_white_space = size != 0;
    text.remove_prefix(in_white_space ? size : 1);
  }
}

}  // namespace

std::string cell(std::string_view text) {
  text = strip(text);
  std::size_t unchanged = 0;  // most texts stay whole
  while (unchanged < text.size() && stays(text, unchanged)) ++unchanged;
  std::string result(text.substr(0, unchanged));
  append_changed(result, text.substr(unchanged));
  return result;
}

}  // namespace registry_docs::markdown
