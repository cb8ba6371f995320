// Texts by people who did not think of the page, written so that a reader of GitHub's Markdown
// sees every character of them and none of it acts on what stands around.
#ifndef REGISTRY_DOCS_MARKDOWN_SAFE_H
#define REGISTRY_DOCS_MARKDOWN_SAFE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace registry_docs::markdown {

// Each appends to `to` what shows the UTF-8 `text`, in time proportional to it. Code spans in
// it stay code spans, and addresses ("https://...") links to themselves; all else is shown as
// it is spelled: emphasis, links, HTML, entities, tables and headings are not live. Control
// and formatting characters stand there as escapes ("\x1b", "\u202e"), but for the joiners of
// emoji and scripts. No block's marker is found in what is appended.

// On one line, anywhere within a paragraph, a list item or a heading, but not within the text
// of a link, where an address would be a second one. White space is collapsed, and a fenced
// block is a code span. Nothing for a text of white space alone.
void append_inline(std::string& to, std::string_view text);

// As lines of their own, with one blank line between every two paragraphs or fenced blocks.
// The first stands where `to` ends: where a block can begin, or behind a text, which a fenced
// block does not follow on its line. A line that begins as one of a list does, or after what
// ends a sentence, begins one for the reader; lines that were only wrapped do not. What is
// indented more than the lines around it is so for the reader. Each line but the first stands
// behind `indent`; no line feed follows the last.
void append_blocks(std::string& to, std::string_view text, std::string_view indent);

// The text as one code span; a line break, with the blanks around it, is a blank. HTML where
// no code span can show the text. Nothing for an empty text.
void append_code_span(std::string& to, std::string_view text);

// Makes what stands in `text` from `begin` on, Markdown on one line or more, fit a table's
// cell: one line, on which fenced blocks are code spans.
void fit_cell(std::string& text, std::size_t begin);

// As HTML, in an element or between double quotes: "&", "<", ">" and "\"" are entities.
// No blank line is appended, since that ends HTML within Markdown.
void append_html(std::string& to, std::string_view text);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_SAFE_H
