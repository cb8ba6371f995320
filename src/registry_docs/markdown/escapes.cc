#include "registry_docs/markdown/escapes.h"

#include <algorithm>

#include "registry_docs/markdown/line.h"
#include "text/ascii.h"
#include "text/code_point.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;

bool is_space_at(std::string_view text, std::size_t at) {
  return at < text.size() && text::is_blank_or_line_feed(text[at]);
}

// Whether a letter or number begins at `at`.
bool has_letter_at(std::string_view text, std::size_t at) {
  if (at >= text.size()) return false;
  if (text::is_ascii(text[at])) return text::is_letter_or_digit(text[at]);
  return text::is_letter_or_number(text::code_point_at(text, at).value);
}

bool has_letter_before(std::string_view text, std::size_t at) {
  if (at == 0) return false;
  do {
    --at;
  } while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
  return has_letter_at(text, at);
}

// A backslash is itself before what it cannot escape, and not at the end of a line.
bool backslash_needs_escape(std::string_view text, std::size_t at) {
  const bool is_inside = at + 1 < text.size();
  const char next = is_inside ? text[at + 1] : '\0';
  return text::is_ascii(next) && !text::is_letter_or_digit(next);
}

// Whether HTML or a link to an address of the web or of mail could begin with this "<".
bool opens_angle(std::string_view text, std::size_t at) {
  constexpr std::string_view marks = "/!?.#$%&'*+=^_`{|}~-";
  if (at + 1 == text.size()) return true;
  const char next = text[at + 1];
  return text::is_letter_or_digit(next) || marks.find(next) != npos;
}

// Any pair of brackets may be a link whose address stands elsewhere in the page, but for an
// empty one.
bool bracket_needs_escape(std::string_view text, std::size_t open) {
  const bool is_empty = open < text.size() && text.substr(open, 2) == "[]";
  const bool is_first = open == 0 || text[open - 1] == ']' || text[open - 1] == '!';
  return !is_empty || is_first || open + 2 >= text.size() ||
         std::string_view("([:").find(text[open + 2]) != npos;
}

// Of a text that begins with "&": where the name or number that follows ends.
std::size_t entity_name_end(std::string_view text) {
  constexpr std::size_t longest = 40;  // the longest name has fewer characters
  std::size_t end = text.substr(1).starts_with('#') ? 2 : 1;
  while (end < std::min(text.size(), longest) && text::is_letter_or_digit(text[end])) ++end;
  return end;
}

bool ampersand_needs_escape(std::string_view text) {
  return entity_name_end(text) == text.size() || is_entity(text);
}

// Whether a run of "#" at the end of the text would be taken for the end of a heading.
bool hash_needs_escape(std::string_view text, std::size_t at) {
  if (at + 1 < text.size()) return false;
  const std::size_t before = text.find_last_not_of('#');
  return before == npos || text::is_blank_or_line_feed(text[before]);
}

// Whether the line has nothing but these characters and blanks.
bool has_only(std::string_view line, std::string_view characters) {
  return std::ranges::all_of(line, [&](char c) {
    return text::is_blank_or_line_feed(c) || characters.find(c) != npos;
  });
}

}  // namespace

bool is_entity(std::string_view text) {
  const std::size_t end = entity_name_end(text);
  return end > 1 && end < text.size() && text[end] == ';';
}

bool needs_escape(std::string_view text, std::size_t at) {
  switch (text[at]) {
    case '\\':
      return backslash_needs_escape(text, at);
    case '[':
      return bracket_needs_escape(text, at);
    case ']':
      return at == 0 || bracket_needs_escape(text, at - 1);
    case '<':
      return opens_angle(text, at);
    case '!':  // of a comment, so that no marker is found in it
      return at > 0 && text[at - 1] == '<' && text.substr(at).starts_with("!--");
    case '&':
      return ampersand_needs_escape(text.substr(at));
    case '#':
      return hash_needs_escape(text, at);
    default:
      return false;
  }
}

bool run_needs_escapes(std::string_view text, std::size_t begin, std::size_t end) {
  const bool is_apart =
      begin > 0 && text::is_blank_or_line_feed(text[begin - 1]) && is_space_at(text, end);
  if (text[begin] != '_') return !is_apart || end - begin > 1;
  return !is_apart && !(has_letter_before(text, begin) && has_letter_at(text, end));
}

std::size_t find_block_start(std::string_view line) {
  if (line.empty()) return npos;
  switch (line[0]) {
    case '#':
      return is_heading(line) ? 0 : npos;
    case '>':
      return 0;
    case '=':
    case '_':
      return has_only(line, line.substr(0, 1)) ? 0 : npos;
    case '|':
    case ':':
      return has_only(line, "|:-") ? 0 : npos;
    default:
      break;
  }
  if (line[0] == '-' && has_only(line, "|:-")) return 0;
  const std::size_t mark = list_mark_size(line);
  return mark == 0 ? npos : mark - 1;
}

}  // namespace registry_docs::markdown
