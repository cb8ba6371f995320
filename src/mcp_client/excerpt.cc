#include "mcp_client/excerpt.h"

#include "registry_docs/text.h"

namespace mcp_client {

std::string excerpt(std::string_view text) {
  constexpr std::size_t most = 200;
  constexpr std::size_t longest_character = 4;
  if (text.size() <= most) return registry_docs::visible(text);
  std::size_t end = most;
  while (end > most - longest_character &&
         (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
    --end;
  }
  return registry_docs::visible(text.substr(0, end)) + "...";
}

std::string in_quotes(std::string_view text) { return "'" + excerpt(text) + "'"; }

}  // namespace mcp_client
