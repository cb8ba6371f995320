#include "registry_docs/markdown/wrap.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/code_point.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;

// Whether the line stands where one that goes on with `head` does.
bool goes_on(const Line& head, const Line& line) {
  const std::size_t mark = list_mark_size(head.text);
  if (mark == 0) return line.indent == head.indent;
  const std::size_t text = std::min(head.text.find_first_not_of(' ', mark), head.text.size());
  return line.indent > head.indent && line.indent <= head.indent + text;
}

// Whether the line is so long that it was broken for its length.
bool is_long(std::string_view line) {
  constexpr std::size_t shortest = 40;  // characters
  const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  return std::ranges::count_if(line, begins) >= static_cast<std::ptrdiff_t>(shortest);
}

// Whether the line ends as a sentence or a line of code does.
bool ends(std::string_view line) {
  if (line.ends_with("\",")) return true;
  const std::size_t last = line.find_last_not_of(")\"'*_`");
  if (last == npos) return true;
  if (std::string_view(".:!?;{}[]>").find(line[last]) != npos) return true;
  line = line.substr(0, last + 1);
  return line.ends_with("…") || line.ends_with("。") || line.ends_with("：");
}

// Whether the line begins with a word.
bool begins_with_word(std::string_view line) {
  if (text::is_ascii(line[0])) return std::string_view("{}])<").find(line[0]) == npos;
  return text::is_letter_or_number(text::code_point_at(line, 0).value);
}

}  // namespace

bool is_wrapped(const Line& head, const Line& line, const Line& next) {
  return goes_on(head, next) && is_long(line.text) && !ends(line.text) &&
         begins_with_word(next.text);
}

}  // namespace registry_docs::markdown
