// A server's command, as the system takes it.
#ifndef MCP_CLIENT_COMMAND_H
#define MCP_CLIENT_COMMAND_H

#include <string>
#include <vector>

#include "mcp_client/client.h"

namespace mcp_client {

struct Command {
  std::string path;  // the command's own, or what the server's PATH leads to; empty if nothing
  std::vector<std::string> arguments;
  std::vector<std::string> environment;
};

Command command_of(const Server& server);

}  // namespace mcp_client

#endif  // MCP_CLIENT_COMMAND_H
