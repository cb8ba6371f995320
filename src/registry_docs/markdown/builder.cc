#include <algorithm>

#include "registry_docs/markdown.h"

namespace registry_docs::markdown {

void Builder::grow(std::size_t more) { text_.resize(std::max(size_ + more, 2 * size_)); }

}  // namespace registry_docs::markdown
