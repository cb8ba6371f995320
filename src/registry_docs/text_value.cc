#include "registry_docs/text_value.h"

namespace registry_docs {

const char* Text::copy_of(std::string_view text) {
  if (text.empty()) return nullptr;
  char* const bytes = new char[text.size()];
  text.copy(bytes, text.size());
  return bytes;
}

}  // namespace registry_docs
