// Texts of which nothing is hidden.
#ifndef REGISTRY_DOCS_MARKDOWN_SHOWN_TEXT_H
#define REGISTRY_DOCS_MARKDOWN_SHOWN_TEXT_H

#include <string>
#include <string_view>

namespace registry_docs::markdown {

// The text with hidden characters, and bytes that are no UTF-8, written as `visible` writes
// them, but for tabs, line feeds and the joiners that scripts and emoji are written with. Each
// CR LF and lone CR is a line feed. Borrows from `text`, or from `room` where it differs.
std::string_view shown_text(std::string_view text, std::string& room);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_SHOWN_TEXT_H
