// Which line breaks of a text its author meant.
#ifndef REGISTRY_DOCS_MARKDOWN_WRAP_H
#define REGISTRY_DOCS_MARKDOWN_WRAP_H

#include "registry_docs/markdown/line.h"

namespace registry_docs::markdown {

// Whether the text only had to be broken between `line` and `next`, which begins no block:
// the break is no more than a blank. `head` is the line that the reader's line begins with.
bool is_wrapped(const Line& head, const Line& line, const Line& next);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_WRAP_H
