#include "registry_docs/blocks/fences.h"

#include <algorithm>

#include "registry_docs/markdown/fence.h"
#include "registry_docs/markdown/line.h"
#include "text/ascii.h"

namespace registry_docs::blocks {
namespace {

constexpr std::size_t deepest = 64;  // so that no line takes longer than its length
constexpr std::size_t code_indent = 4;

// The columns of the blanks that a line, which begins in a column, begins with.
markdown::Indent blanks_of(std::string_view line, std::size_t column) {
  constexpr std::size_t tab = 4;
  markdown::Indent blanks;
  for (; blanks.size < line.size() && text::is_blank(line[blanks.size]); ++blanks.size) {
    const std::size_t at = column + blanks.columns;
    blanks.columns += line[blanks.size] == '\t' ? tab - at % tab : 1;
  }
  return blanks;
}

markdown::Line line_of(std::string_view text, std::size_t column) {
  return {.whole = text,
          .text = text::trimmed(text, text::is_blank),
          .indent = blanks_of(text, column).columns};
}

bool is_blank(std::string_view line) {
  return line.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

// The marks of the containers that are open already. Says whether all of them go on.
bool Fences::enter_known(Rest& rest) {
  for (std::size_t i = 0; i < containers_.size(); ++i) {
    const Container& each = containers_[i];
    const markdown::Indent blanks = blanks_of(rest.text, rest.column);
    const bool is_item = !each.is_quotation && rest.column + blanks.columns >= each.column;
    const bool is_quotation = each.is_quotation && blanks.columns < code_indent &&
                              rest.text.substr(blanks.size).starts_with('>');
    if (!is_item && !is_quotation && !(is_blank(rest.text) && !each.is_quotation)) {
      containers_.resize(i);
      return false;
    }
    if (is_quotation) {
      rest.text.remove_prefix(blanks.size + 1);
      rest.column += blanks.columns + 1;
    }
  }
  return true;
}

void Fences::enter_new(Rest& rest) {
  while (containers_.size() < deepest) {
    const std::size_t base = containers_.empty() || containers_.back().is_quotation
                                 ? rest.column
                                 : std::max(rest.column, containers_.back().column);
    const markdown::Indent blanks = blanks_of(rest.text, rest.column);
    if (rest.column + blanks.columns >= base + code_indent) return;
    const std::string_view marks = rest.text.substr(blanks.size);
    const bool is_quotation = marks.starts_with('>');
    const std::size_t size = is_quotation ? 1 : markdown::list_mark_size(marks);
    if (size == 0) return;
    rest.text = marks.substr(size);
    rest.column += blanks.columns + size;
    const std::size_t gap = blanks_of(rest.text, rest.column).columns;
    const bool is_code = gap > code_indent || is_blank(rest.text);
    containers_.push_back({is_quotation, rest.column + (is_code ? 1 : gap)});
  }
}

bool Fences::is_closed_by(const Rest& rest) const {
  const markdown::Line line = line_of(rest.text, rest.column);
  return markdown::closes(line, {.marks = open_->marks, .info = {}, .indent = open_->indent});
}

void Fences::look_for_fence(const Rest& rest) {
  const std::size_t column = containers_.empty() ? 0 : containers_.back().column;
  const markdown::Line line = line_of(rest.text, rest.column);
  const auto fence = markdown::fence_of(line);
  if (!fence || rest.column + line.indent >= column + code_indent) return;
  open_ = Open{std::string(fence->marks), fence->indent};
}

void Fences::take_line(std::string_view line) {
  Rest rest{.text = line};
  if (!enter_known(rest)) open_.reset();
  was_held_ = open_.has_value();
  if (open_) {
    if (is_closed_by(rest)) open_.reset();
    return;
  }
  if (is_blank(rest.text)) return;
  enter_new(rest);
  look_for_fence(rest);
  was_held_ = open_.has_value();
}

bool Fences::hold(std::size_t at) {
  while (next_line_ <= at && next_line_ < text_.size()) {
    const std::size_t end = std::min(text_.find('\n', next_line_), text_.size());
    take_line(text_.substr(next_line_, end - next_line_));
    next_line_ = end + 1;
  }
  return was_held_;
}

void Fences::skip_to(std::size_t at) {
  if (next_line_ > at) return;
  const std::size_t line = text_.rfind('\n', at);
  next_line_ = std::max(next_line_, line == std::string_view::npos ? 0 : line + 1);
}

}  // namespace registry_docs::blocks
