// Margins of lines, and lines behind blanks.
#ifndef REGISTRY_DOCS_LAYOUTS_MARGIN_H
#define REGISTRY_DOCS_LAYOUTS_MARGIN_H

#include <cstddef>
#include <string>
#include <string_view>

namespace registry_docs::layouts {

// Where what is written in the last line of a text that grows at its end begins: behind the
// blanks and the marks of lists ("- ", "2. ") before it. A column is a code point, or a tab to
// the next multiple of four; beyond 200 none is counted.
class Margin {
 public:
  // `text` begins as it was given last. Takes time in proportion to what was added.
  std::size_t at_end_of(std::string_view text);

 private:
  std::size_t seen_ = 0;  // of the text
  std::size_t line_ = 0;  // where the last one begins
};

// As many blanks as the column, which a Margin gave.
std::string_view blanks(std::size_t column);

// Puts the blanks before every line but the first of what stands in `text` from `begin` on,
// and before no empty line.
void indent_lines(std::string& text, std::size_t begin, std::string_view blanks);

// Appends a text whose lines stand behind an indent: those that begin in it, and the first one
// if it does. Empty lines have none.
void append_indented(std::string& to, std::string_view text, std::string_view indent,
                     bool begins_line);

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_MARGIN_H
