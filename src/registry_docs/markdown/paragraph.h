// Paragraphs of several lines.
#ifndef REGISTRY_DOCS_MARKDOWN_PARAGRAPH_H
#define REGISTRY_DOCS_MARKDOWN_PARAGRAPH_H

#include <span>
#include <string>
#include <string_view>

#include "registry_docs/markdown/line.h"

namespace registry_docs::markdown {

// Appends lines of a `shown_text`, none of them blank or a fence, as one paragraph, each
// behind `before` but for the first. A line break that the author meant is one for the reader,
// and what is indented more than other lines is so for the reader.
void append_paragraph(std::string& to, std::span<const Line> lines, std::string_view before);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_PARAGRAPH_H
