#include "text/sentence.h"

#include <algorithm>
#include <array>

#include "registry_docs/text.h"
#include "text/ascii.h"
#include "text/white_space.h"

namespace text {
namespace {

// The marks that a line of a heading, a quote or a list begins with, and the blanks behind
// them.
std::size_t marks_size(std::string_view line) {
  std::size_t size = 0;
  const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
  const bool is_numbered = digits > 0 && digits < line.size() && digits < 4 &&
                           (line[digits] == '.' || line[digits] == ')');
  if (is_numbered) size = digits + 1;
  if (line.starts_with('#')) size = std::min(line.find_first_not_of('#'), line.size());
  if (line.starts_with("\u2022")) size = 3;
  constexpr std::string_view bullets = "-*+>";
  if (!line.empty() && bullets.find(line[0]) != std::string_view::npos) size = 1;
  if (size == 0) return 0;
  const std::string_view behind = line.substr(size);
  const std::size_t blanks = std::min(behind.find_first_not_of(" \t"), behind.size());
  return blanks == 0 && !behind.empty() ? 0 : size + blanks;
}

bool is_fence(std::string_view line) {
  return line.starts_with("```") || line.starts_with("~~~");
}

// A line without what marks it.
struct Line {
  std::string_view text;
  enum class Kind { blank, prose, item, heading, fence } kind;
};

Line take_line(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = registry_docs::strip(text.substr(0, end));
  text.remove_prefix(std::min(end + 1, text.size()));
  const std::size_t marks = marks_size(line);
  const Line::Kind kind = line.size() == marks    ? Line::Kind::blank
                          : is_fence(line)        ? Line::Kind::fence
                          : marks == 0            ? Line::Kind::prose
                          : line.starts_with('#') ? Line::Kind::heading
                                                  : Line::Kind::item;
  return {line.substr(marks), kind};
}

void append(std::string& to, std::string_view separator, std::string_view text) {
  if (!to.empty()) to += separator;
  to += text;
}

// The first lines that belong together, in one line. A colon at their end leads on: the items
// of a list follow, or another paragraph. A heading counts where nothing else does.
std::string first_paragraph(std::string_view text) {
  std::string heading;
  std::string paragraph;
  bool is_list = false;
  while (!text.empty()) {
    const Line line = take_line(text);
    const bool leads_on = paragraph.ends_with(':') || is_list;
    const bool is_prose = line.kind == Line::Kind::prose;
    const bool is_item = line.kind == Line::Kind::item;
    const bool goes_on = paragraph.empty() || (is_prose && !is_list) ||
                         (is_item && leads_on) ||
                         (line.kind == Line::Kind::blank && leads_on && !is_list);
    if (!goes_on) break;
    if (line.kind == Line::Kind::heading && heading.empty()) heading = line.text;
    if (!is_prose && !is_item) continue;
    append(paragraph, is_list ? ", " : " ", line.text);
    is_list = is_item && leads_on;
  }
  return paragraph.empty() ? heading : paragraph;
}

// Whether the word that ends at `end`, with a full stop, is one that stands within sentences.
bool is_abbreviation(std::string_view text, std::size_t end) {
  constexpr std::array<std::string_view, 13> words = {"e.g",    "i.e",  "etc", "vs", "cf",
                                                      "approx", "incl", "eg",  "ie", "resp",
                                                      "max",    "min",  "al"};
  const std::string_view before = text.substr(0, end);
  const std::size_t begin = before.find_last_of(" (\u201c\"'") + 1;
  return std::ranges::find(words, before.substr(begin)) != words.end();
}

// Whether the mark at `at`, outside code, ends a sentence. What follows has to look like the
// beginning of another one.
bool ends_sentence(std::string_view text, std::size_t at) {
  std::size_t behind = at + 1;
  while (behind < text.size() &&
         std::string_view(")\"'*_").find(text[behind]) != std::string_view::npos) {
    ++behind;
  }
  if (behind == text.size()) return true;
  if (text[behind] != ' ') return false;
  if (text[at] == '.' && is_abbreviation(text, at)) return false;
  const char next = text[std::min(behind + 1, text.size() - 1)];
  return !(next >= 'a' && next <= 'z') &&
         !(text[at] == '.' && is_digit(next) && at > 1 && text.substr(at - 2, 2) == "No");
}

// The size of the first sentence of a paragraph.
std::size_t sentence_size(std::string_view text) {
  std::size_t depth = 0;  // of brackets
  bool is_code = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c == '`') is_code = !is_code && text.find('`', at + 1) != std::string_view::npos;
    if (is_code) continue;
    if (c == '(' || c == '[') ++depth;
    if ((c == ')' || c == ']') && depth > 0) --depth;
    const bool is_mark = c == '.' || c == '!' || c == '?';
    if (is_mark && depth == 0 && ends_sentence(text, at)) {
      return std::min(text.find(' ', at), text.size());
    }
    constexpr std::string_view wide_stop = "\u3002";
    if (c == wide_stop[0] && text.substr(at).starts_with(wide_stop)) {
      return at + wide_stop.size();
    }
  }
  return text.size();
}

std::string collapsed(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const auto* const end = std::ranges::find_if_not(text, is_letter_or_digit);
    result.append(text.begin(), end);
    text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
    std::size_t blank = white_space_size(text);
    if (blank != 0) {
      for (; blank != 0; blank = white_space_size(text)) text.remove_prefix(blank);
      result += ' ';
    } else if (!text.empty()) {
      result += text.front();
      text.remove_prefix(1);
    }
  }
  return result;
}

}  // namespace

std::string first_sentence(std::string_view text) {
  const std::string paragraph = collapsed(registry_docs::strip(first_paragraph(text)));
  return paragraph.substr(0, sentence_size(paragraph));
}

}  // namespace text
