// Markdown that MDX reads the same.
#ifndef REGISTRY_DOCS_MARKDOWN_MDX_H
#define REGISTRY_DOCS_MARKDOWN_MDX_H

#include <cstddef>
#include <string>

namespace registry_docs::markdown {

// Makes MDX of what the functions of safe.h appended to `text` from `begin` on: braces, "<"
// and lines that begin with "import" or "export" are text, and a link stands for an address
// between angles. No marker of a block in a comment of MDX is found in it. In time
// proportional to it.
void make_mdx(std::string& text, std::size_t begin);

// The same for what append_html appended.
void make_mdx_element(std::string& text, std::size_t begin);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_MDX_H
