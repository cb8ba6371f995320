// Blocks' markers in texts.
#ifndef REGISTRY_DOCS_MARKDOWN_MARKERS_IN_H
#define REGISTRY_DOCS_MARKDOWN_MARKERS_IN_H

#include <string_view>

namespace registry_docs::markdown {

// Whether a block's marker, or what could have been meant as one, begins in the text, in a
// comment that begins so.
bool has_marker(std::string_view text, std::string_view comment = "<!--");

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_MARKERS_IN_H
