// Asks servers of the Model Context Protocol for all that they list, over their standard input
// and output.
#ifndef MCP_CLIENT_CLIENT_H
#define MCP_CLIENT_CLIENT_H

#include <span>
#include <vector>

#include "mcp_client/server.h"

namespace mcp_client {

// Asks all servers side by side; the outcomes stand in their order. Each server runs in a
// session and group of its own, all of which has ended when this returns or throws. A signal
// that asks this program to end (SIGHUP, SIGINT, SIGQUIT, SIGTERM) ends the servers, and takes
// its effect then. Throws std::system_error when nothing can be asked, and what the functions
// of the settings throw. For programs of one thread.
std::vector<Outcome> ask(std::span<const Server> servers, const Settings& settings);

}  // namespace mcp_client

#endif  // MCP_CLIENT_CLIENT_H
