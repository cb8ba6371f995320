// What stands in a message, and in the result of one.
#ifndef MCP_CLIENT_MESSAGE_H
#define MCP_CLIENT_MESSAGE_H

#include <array>
#include <string_view>

#include "json/node.h"

namespace mcp_client {

// The members of these names. One that is null is as good as none. Borrows from the message.
template <std::size_t Count>
std::array<json::MaybeNode, Count> members_of(
    const json::Document& message, const std::array<std::string_view, Count>& names) {
  std::array<json::MaybeNode, Count> found = json::Node(message).find_each(names);
  for (json::MaybeNode& each : found) {
    if (each && each->kind() == json::Kind::null) each.reset();
  }
  return found;
}

}  // namespace mcp_client

#endif  // MCP_CLIENT_MESSAGE_H
