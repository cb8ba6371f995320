// Markdown as formatters leave it.
#ifndef REGISTRY_DOCS_MARKDOWN_TIDY_H
#define REGISTRY_DOCS_MARKDOWN_TIDY_H

#include <cstddef>
#include <string>

namespace registry_docs::markdown {

// Changes what stands in `text` from `begin` on, and nothing that a reader sees of it: no
// blank lines at its ends and no two in a row, the columns of tables as wide as their widest
// cell, and a blank line behind each item of a list that holds one. Code in fences stays as it
// is, but for its blank lines.
void tidy(std::string& text, std::size_t begin);

// Of that, the blank lines alone.
void trim(std::string& text, std::size_t begin);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_TIDY_H
