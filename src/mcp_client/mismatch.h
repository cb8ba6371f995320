// That a server did something else than was expected.
#ifndef MCP_CLIENT_MISMATCH_H
#define MCP_CLIENT_MISMATCH_H

#include <stdexcept>
#include <string>

namespace mcp_client {

// The message does not name the server.
class Mismatch : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  Mismatch(const std::string& expected, const std::string& found)
      : std::runtime_error("expected " + expected + ", found " + found) {}
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_MISMATCH_H
