#include "registry_docs/markdown.h"

namespace registry_docs::markdown {

std::string code(std::string_view text) {
  std::string span;
  span.reserve(text.size() + 2);
  span += '`';
  span += text;
  span += '`';
  return span;
}

}  // namespace registry_docs::markdown
