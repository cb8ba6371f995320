// Blank lines between the items of lists.
#ifndef REGISTRY_DOCS_MARKDOWN_LOOSEN_H
#define REGISTRY_DOCS_MARKDOWN_LOOSEN_H

#include <span>
#include <vector>

#include "registry_docs/markdown/tidy_line.h"

namespace registry_docs::markdown {

// Of each line, whether a blank line is lacking before it: it begins an item behind one that
// holds a blank line, or a list in an item whose parts stand apart.
std::vector<bool> lines_to_part(std::span<const TidyLine> lines);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_LOOSEN_H
