#include "registry_docs/blocks/margin.h"

#include <algorithm>

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

// Between blank lines, as blocks of Markdown stand.
std::string apart(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of('\n'), text.size());
  const std::size_t end = text.find_last_not_of('\n') + 1;
  if (begin >= end) return {};
  return "\n" + std::string(text.substr(begin, end - begin)) + "\n";
}

bool is_body(const Block& block, std::string_view text) {
  return block.body.size() == text.size() + 1 && block.body.starts_with(text) &&
         block.body.back() == '\n';
}

}  // namespace

std::optional<std::string> new_body(std::string_view whole, const Block& block,
                                    std::string text, const Syntax& syntax) {
  if (!syntax.keeps_form) {
    if (is_body(block, text)) return std::nullopt;
    return std::move(text) + "\n";
  }
  if (syntax.is_markdown) text = apart(text);
  text += '\n';
  const std::string margin = margin_of(line_before(whole, block.open), syntax.is_markdown);
  text = behind(margin, text);
  if (text == block.body) return std::nullopt;
  return text;
}

}  // namespace registry_docs::blocks
