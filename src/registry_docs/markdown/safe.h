// Texts by people who did not think of the page, written so that a reader of GitHub's Markdown
// sees every character of them and none of it acts on what stands around.
#ifndef REGISTRY_DOCS_MARKDOWN_SAFE_H
#define REGISTRY_DOCS_MARKDOWN_SAFE_H

#include <string>
#include <string_view>

namespace registry_docs::markdown {

// Each appends to `to` what shows the UTF-8 `text`. Code spans in it stay code spans, and so
// do fenced blocks where blocks can stand; all else is shown as it is spelled: emphasis,
// links, HTML, entities, tables and headings are not live. Control and formatting characters
// stand there as escapes ("\x1b", "\u202e"), but for the joiners of emoji and scripts.

// On one line, anywhere within a paragraph, a list item or a heading: white space is
// collapsed, line breaks are blanks.
void append_inline(std::string& to, std::string_view text);

// As lines of its own, each behind `indent`: paragraphs, fenced blocks, and lines that begin
// as those of lists do, each of which begins a line for the reader. The first line is written
// without the indent, and no line feed follows the last. What opens is closed.
void append_blocks(std::string& to, std::string_view text, std::string_view indent);

// The text as a code span, with as many backquotes as it needs; a line break is a blank.
void append_code_span(std::string& to, std::string_view text);

// Makes what stands in `text` from `begin` on, Markdown on one line or more, fit a table's
// cell.
void fit_cell(std::string& text, std::size_t begin);

// As HTML: "&", "<", ">" and double quotes as entities.
void append_html(std::string& to, std::string_view text);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_SAFE_H
