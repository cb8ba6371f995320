// The pieces of Markdown, written at the end of a text.
#ifndef REGISTRY_DOCS_MARKDOWN_APPEND_H
#define REGISTRY_DOCS_MARKDOWN_APPEND_H

#include <cstddef>
#include <string>
#include <string_view>

namespace registry_docs::markdown {

void append_code(std::string& to, std::string_view text);
void append_cell(std::string& to, std::string_view text);

// Makes what stands in `text` from `begin` on safe for one cell.
void make_cell(std::string& text, std::size_t begin);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_APPEND_H
