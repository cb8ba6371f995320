// Running text.
#ifndef REGISTRY_DOCS_MARKDOWN_PROSE_H
#define REGISTRY_DOCS_MARKDOWN_PROSE_H

#include <functional>
#include <string>
#include <string_view>

#include "registry_docs/markdown/code_span.h"

namespace registry_docs::markdown {

// Appends what stands for a line feed of the text and the blanks around it.
using EndLine = std::function<void(const char* line_feed)>;

// Whether it is clear at one look that a text is shown as it is, on one line, wherever it
// stands. Most are, and take a third of the time that way.
bool is_plain_line(std::string_view text);

// Appends what shows `text`, which may begin a line, with its code spans, each on one line. It
// is a `shown_text` with no blanks and line feeds at its ends. Without `end_line` all of it
// stands on one line.
void append_prose(std::string& to, std::string_view text, const EndLine& end_line = {});

// What a reader sees of the span, on one line.
std::string shown_code(const CodeSpan& span);

// Appends the span on one line, in as few backquotes as it needs. HTML stands for one in which
// a block's marker would be found.
void append_span(std::string& to, const CodeSpan& span);

// What a code span of this line would show, as HTML within a line, with `bar` for each "|".
void append_code_element(std::string& to, std::string_view code, std::string_view bar = "|");

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_PROSE_H
