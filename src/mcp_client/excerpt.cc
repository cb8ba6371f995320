#include "mcp_client/excerpt.h"

#include "registry_docs/text.h"

namespace mcp_client {

std::string excerpt(std::string_view text) {
  return registry_docs::visible(registry_docs::excerpt(text));
}

std::string in_quotes(std::string_view text) { return "'" + excerpt(text) + "'"; }

}  // namespace mcp_client
