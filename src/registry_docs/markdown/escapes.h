// Which characters of a text Markdown reads as more than themselves.
#ifndef REGISTRY_DOCS_MARKDOWN_ESCAPES_H
#define REGISTRY_DOCS_MARKDOWN_ESCAPES_H

#include <cstddef>
#include <string_view>

namespace registry_docs::markdown {

// Whether the text, which begins with "&", may begin with an entity.
bool is_entity(std::string_view text);

// Whether the character at `at` needs a backslash, wherever in a line it stands, in order to
// be itself. Not for backquotes and the runs of `run_needs_escapes`. Next to either end of
// `text` anything may stand.
bool needs_escape(std::string_view text, std::size_t at);

// Whether the run of "*", "_" or "~" from `begin` to `end` could begin or end emphasis.
bool run_needs_escapes(std::string_view text, std::size_t begin, std::size_t end);

// The offset of the character that needs a backslash lest the line begin a block (a heading,
// list, quotation, rule or table) or make a heading of the line before it; or npos.
std::size_t find_block_start(std::string_view line);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_ESCAPES_H
