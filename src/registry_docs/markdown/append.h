// The pieces of Markdown, written at the end of a text.
#ifndef REGISTRY_DOCS_MARKDOWN_APPEND_H
#define REGISTRY_DOCS_MARKDOWN_APPEND_H

#include <string>
#include <string_view>

namespace registry_docs::markdown {

void append_code(std::string& to, std::string_view text);
void append_cell(std::string& to, std::string_view text);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_APPEND_H
