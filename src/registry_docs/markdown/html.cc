#include <algorithm>

#include "registry_docs/markdown/safe.h"
#include "registry_docs/markdown/shown_text.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

std::string_view entity(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      return {};
  }
}

// Whether only blanks stand between the last line feed and the end of `text`.
bool ends_in_blank_line(std::string_view text) {
  while (!text.empty() && text::is_blank(text.back())) text.remove_suffix(1);
  return text.ends_with('\n');
}

bool is_special(char c) { return c == '\n' || !entity(c).empty(); }

void append_special(std::string& to, char c) {
  if (c != '\n') {
    to += entity(c);
  } else if (ends_in_blank_line(to)) {
    to += "&#10;";  // a blank line would end the HTML
  } else {
    to += c;
  }
}

}  // namespace

void append_html(std::string& to, std::string_view text) {
  std::string room;
  text = shown_text(text, room);
  while (!text.empty()) {
    const auto* const special = std::ranges::find_if(text, is_special);
    const auto size = static_cast<std::size_t>(special - text.begin());
    to += text.substr(0, size);
    if (size == text.size()) return;
    append_special(to, text[size]);
    text.remove_prefix(size + 1);
  }
}

}  // namespace registry_docs::markdown
