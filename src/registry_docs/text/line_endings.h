// Line endings.
#ifndef REGISTRY_DOCS_TEXT_LINE_ENDINGS_H
#define REGISTRY_DOCS_TEXT_LINE_ENDINGS_H

#include <string>

namespace registry_docs::text {

// The text with every CR LF and every CR that stands alone made one line feed.
std::string with_line_feeds(std::string text);

}  // namespace registry_docs::text

#endif  // REGISTRY_DOCS_TEXT_LINE_ENDINGS_H
