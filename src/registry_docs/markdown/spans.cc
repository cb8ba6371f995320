#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"
#include "text/value.h"

namespace registry_docs::markdown {

void append_code(std::string& to, std::string_view text) {
  to += '`';
  to += text;
  to += '`';
}

std::string code(std::string_view text) {
  std::string span;
  append_code(span, text);
  return span;
}

std::string value(const Value& value) { return text::spelled(value); }

}  // namespace registry_docs::markdown
