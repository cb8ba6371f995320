// Addresses of the web as they stand in prose.
#ifndef REGISTRY_DOCS_MARKDOWN_ADDRESS_H
#define REGISTRY_DOCS_MARKDOWN_ADDRESS_H

#include <cstddef>
#include <string>
#include <string_view>

namespace registry_docs::markdown {

// The size of the scheme ("https", "http" or "ftp", in any case) of the address whose "://"
// stands at `colon`, or 0: there is no scheme that GitHub makes a link of.
std::size_t scheme_size(std::string_view text, std::size_t colon);

// The address that `text` begins with, whose scheme has that size, without the punctuation
// that ends a sentence and brackets that were opened before it. Empty when no host follows.
std::string_view leading_address(std::string_view text, std::size_t scheme);

// The address as a link that shows it: a bare one is cut by other rules, in which backslashes
// show.
void append_address(std::string& to, std::string_view address);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_ADDRESS_H
