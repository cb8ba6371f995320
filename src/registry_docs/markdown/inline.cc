#include <algorithm>
#include <array>

#include "registry_docs/markdown/code_span.h"
#include "registry_docs/markdown/markers_in.h"
#include "registry_docs/markdown/prose.h"
#include "registry_docs/markdown/safe.h"
#include "registry_docs/markdown/shown_text.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

// The fewest backquotes, of which the text has no run; 0 when that would be too many.
std::size_t quotes_around(std::string_view text) {
  std::array<bool, Backquotes::longest + 1> is_taken{true};
  for (std::size_t at = text.find('`'); at < text.size(); at = text.find('`', at)) {
    const std::size_t end = std::min(text.find_first_not_of('`', at), text.size());
    if (end - at <= Backquotes::longest) is_taken.at(end - at) = true;
    at = end;
  }
  const auto* const found = std::ranges::find(is_taken, false);
  return found == is_taken.end() ? 0 : static_cast<std::size_t>(found - is_taken.begin());
}

// Whether the blanks or backquotes at its ends would be lost.
bool needs_room(std::string_view text) {
  const bool is_blank = text.find_first_not_of(' ') == std::string_view::npos;
  const bool is_apart = text.starts_with(' ') && text.ends_with(' ');
  return text.starts_with('`') || text.ends_with('`') || (is_apart && !is_blank);
}

// By byte: whether it needs no care within a code span.
constexpr auto is_of_names = [] {
  std::array<bool, 256> is_kept{};
  for (std::size_t c = 0; c < is_kept.size(); ++c) {
    is_kept[c] = text::is_letter_or_digit(static_cast<char>(c));
  }
  for (const char c : std::string_view("_-./[]:* ")) {
    is_kept[static_cast<unsigned char>(c)] = true;
  }
  return is_kept;
}();

// Whether nothing in a text needs care, as in most names.
bool is_name(std::string_view text) {
  return !text.empty() && text.front() != ' ' && text.back() != ' ' &&
         std::ranges::all_of(
             text, [](char c) { return is_of_names[static_cast<unsigned char>(c)]; });
}

}  // namespace

void append_inline(std::string& to, std::string_view text) {
  if (is_plain_line(text)) {
    to += text;
    return;
  }
  std::string room;
  append_prose(to, text::trimmed(shown_text(text, room), text::is_blank_or_line_feed));
}

void append_code_span(std::string& to, std::string_view text) {
  if (is_name(text)) {
    to += '`';
    to += text;
    to += '`';
    return;
  }
  std::string room;
  std::string content;
  append_on_one_line(content, shown_text(text, room));
  if (content.empty()) return;
  const std::size_t quotes = quotes_around(content);
  if (quotes == 0 || has_marker(content)) {
    append_code_element(to, content);
    return;
  }
  const std::string_view room_for_ends = needs_room(content) ? " " : "";
  to.append(quotes, '`').append(room_for_ends).append(content);
  to.append(room_for_ends).append(quotes, '`');
}

}  // namespace registry_docs::markdown
