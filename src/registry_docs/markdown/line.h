// The lines of a text, and what they begin as.
#ifndef REGISTRY_DOCS_MARKDOWN_LINE_H
#define REGISTRY_DOCS_MARKDOWN_LINE_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace registry_docs::markdown {

// Of a line's text: the size of the mark of a list's item ("-", "12.") that it begins with,
// or 0.
std::size_t list_mark_size(std::string_view line);

// Whether the line begins as a heading.
bool is_heading(std::string_view line);

enum class LineKind {
  prose,
  item,   // begins with the mark of a list, or with what people write for one
  whole,  // nothing goes on with it: a heading, a quotation, a row of a table
};

LineKind kind_of(std::string_view line);

// Columns of the blanks that a line begins with. A tab reaches to the next multiple of four.
struct Indent {
  std::size_t columns = 0;
  std::size_t size = 0;  // in bytes
};

// The blanks at the line's beginning, those that begin at or behind the column `most` left
// out.
Indent indent_of(std::string_view line, std::size_t most = std::string_view::npos);

struct Line {
  std::string_view whole;  // without the line feed
  std::string_view text;   // without the blanks at both ends
  std::size_t indent = 0;  // in columns
};

// The lines of a text from the first to the last that is not blank. The text's very first line
// is taken to be indented as the others are. They borrow from `text`.
std::vector<Line> lines_of(std::string_view text);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_LINE_H
