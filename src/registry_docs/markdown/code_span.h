// Code spans, as CommonMark finds them in a text.
#ifndef REGISTRY_DOCS_MARKDOWN_CODE_SPAN_H
#define REGISTRY_DOCS_MARKDOWN_CODE_SPAN_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace registry_docs::markdown {

// The runs of backquotes of a text, asked for from its beginning to its end, which takes time
// in proportion to the text, whatever runs there are.
class Backquotes {
 public:
  // Longer runs delimit nothing.
  static constexpr std::size_t longest = 80;

  // Borrows `text`.
  explicit Backquotes(std::string_view text) : text_(text) {}

  // The run that begins at `at`.
  [[nodiscard]] std::string_view run_at(std::size_t at) const;

  // The offset of the first run of exactly `size` at or after `from`, or npos. Where there is
  // one, the next call's `from` must lie behind it.
  std::size_t find(std::size_t size, std::size_t from);

 private:
  std::string_view text_;
  std::array<std::size_t, longest + 1> last_{};  // by size: behind the last run known, or 0
  bool knows_all_ = false;
};

// A part of a text that is a code span. Borrows from the text.
struct CodeSpan {
  std::string_view whole;  // empty: there is none
  std::string_view quotes;
  std::string_view content;
  bool is_fenced = false;  // it stands as a fenced block does; the content is the code only
};

// The span whose first backquote stands at `at`. `backquotes` are those of `text`.
CodeSpan code_span_at(std::string_view text, std::size_t at, Backquotes& backquotes);

// Code that a span is to hold: each line feed, with the blanks around it, is one blank.
void append_on_one_line(std::string& to, std::string_view code);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_CODE_SPAN_H
