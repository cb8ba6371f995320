// Tables whose columns stand below one another.
#ifndef REGISTRY_DOCS_MARKDOWN_ALIGN_TABLE_H
#define REGISTRY_DOCS_MARKDOWN_ALIGN_TABLE_H

#include <span>
#include <string>

#include "registry_docs/markdown/line.h"

namespace registry_docs::markdown {

// Appends lines that begin with a bar, each with a line feed: every cell as wide as the widest
// of its column, if the second of them is that between a table's header and its rows. Lines
// that make no table stay as they are.
void append_table(std::string& to, std::span<const Line> rows);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_ALIGN_TABLE_H
