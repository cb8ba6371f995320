// The errors that servers answer with.
#ifndef MCP_CLIENT_ERROR_H
#define MCP_CLIENT_ERROR_H

#include <string>
#include <vector>

#include "json/node.h"

namespace mcp_client {

struct Error {
  std::string text;  // "the error 'no such thing'"
  bool is_unknown_method = false;
  std::vector<std::string> versions = {};  // those that it names as the only supported ones
};

Error error_in(const json::Node& error);

// An array's elements that are texts; none of another value.
std::vector<std::string> texts_in(const json::MaybeNode& value);

}  // namespace mcp_client

#endif  // MCP_CLIENT_ERROR_H
