#include "registry_docs/blocks/margin.h"

#include <algorithm>
#include <initializer_list>

#include "registry_docs/markdown/line.h"
#include "text/ascii.h"

namespace registry_docs::blocks {
namespace {

// The beginning of the line that a part of a text stands in, up to that part.
std::string_view line_before(std::string_view whole, std::string_view part) {
  const std::string_view before =
      whole.substr(0, static_cast<std::size_t>(part.data() - whole.data()));
  const std::size_t line_feed = before.rfind('\n');
  return before.substr(line_feed == std::string_view::npos ? 0 : line_feed + 1);
}

// Blanks and the marks of quotations as they are, and blanks for the marks of lists.
std::string margin_of(std::string_view line, bool is_markdown) {
  std::string margin;
  while (!line.empty()) {
    const bool is_kept = text::is_blank(line[0]) || (is_markdown && line[0] == '>');
    const std::size_t mark = is_markdown && !is_kept ? markdown::list_mark_size(line) : 0;
    if (!is_kept && mark == 0) break;
    margin.append(is_kept ? line.substr(0, 1) : std::string(mark, ' '));
    line.remove_prefix(is_kept ? 1 : mark);
  }
  return margin;
}

// Behind the margin, without blanks at the ends of empty lines.
std::string behind(std::string_view margin, std::string_view text) {
  const std::string_view short_margin =
      margin.substr(0, margin.find_last_not_of(" \t") + 1);  // npos + 1 is 0
  std::string lines;
  while (!text.empty()) {
    const std::string_view line =
        text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    lines.append(line == "\n" ? short_margin : margin).append(line);
    text.remove_prefix(line.size());
  }
  return lines.append(margin);
}

// Without the line feeds at both ends.
std::string_view core_of(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of('\n'), text.size()));
  return text.substr(0, text.find_last_not_of('\n') + 1);  // npos + 1 is 0
}

// Whether the text is these pieces in a row. Found out without making a text of them, which
// may be large.
bool is_made_of(std::string_view text, std::initializer_list<std::string_view> pieces) {
  for (const std::string_view piece : pieces) {
    if (!text.starts_with(piece)) return false;
    text.remove_prefix(piece.size());
  }
  return text.empty();
}

}  // namespace

std::optional<std::string> new_body(std::string_view whole, const Block& block,
                                    std::string text, const Syntax& syntax) {
  if (!syntax.keeps_form) {
    if (is_made_of(block.body, {text, "\n"})) return std::nullopt;
    return std::move(text) + "\n";
  }
  const std::string_view shown = syntax.is_markdown ? core_of(text) : text;
  // Blocks of Markdown stand between blank lines.
  const std::string_view gap = syntax.is_markdown && !shown.empty() ? "\n" : "";
  const std::string margin = margin_of(line_before(whole, block.open), syntax.is_markdown);
  if (margin.empty() && is_made_of(block.body, {gap, shown, gap, "\n"})) return std::nullopt;
  std::string body;
  body.reserve(shown.size() + 3);
  body.append(gap).append(shown).append(gap) += '\n';
  if (!margin.empty()) body = behind(margin, body);
  if (body == block.body) return std::nullopt;
  return body;
}

}  // namespace registry_docs::blocks
