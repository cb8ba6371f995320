#include <string>

#include "registry_docs/text.h"

namespace registry_docs {

std::string excerpt(std::string_view text) {
  constexpr std::size_t most = 200;
  constexpr std::size_t longest_character = 4;  // what is no UTF-8 is cut anywhere
  if (text.size() <= most) return std::string(text);
  std::size_t end = most;
  while (end > most - longest_character &&
         (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
    --end;
  }
  return std::string(text.substr(0, end)) + "...";
}

std::string in_quotes(std::string_view text, char quote) {
  return quote + excerpt(text) + quote;
}

std::string visible_in_quotes(std::string_view bytes) {
  return "'" + visible(excerpt(bytes)) + "'";
}

}  // namespace registry_docs
