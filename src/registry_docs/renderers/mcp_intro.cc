#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"

namespace registry_docs {

std::string mcp_intro_block(const Host& host) {
  return "Complete reference for the **" + std::to_string(host.TOOLS.size()) +
         " MCP tools** provided by " + host.PRODUCT.name + ", " +
         renderers::tier_counts(host) +
         ".\n\n"
         "Each tool groups related functionality behind a single endpoint; a tool with "
         "actions takes an `action` parameter that selects the operation.";
}

}  // namespace registry_docs
