#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"

namespace registry_docs::markdown {

void append_code(Builder& to, std::string_view text) {
  to += '`';
  to += text;
  to += '`';
}

std::string code(std::string_view text) {
  Builder span;
  append_code(span, text);
  return std::move(span).text();
}

}  // namespace registry_docs::markdown
