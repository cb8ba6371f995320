// Asks a server of the Model Context Protocol for its tools, over its standard input and
// output.
#ifndef MCP_CLIENT_CLIENT_H
#define MCP_CLIENT_CLIENT_H

#include <string>

#include "mcp_client/server.h"

namespace mcp_client {

// The tools of all pages as one JSON object, {"tools":[...]}, each in the bytes of the server.
// The server and what it started in its process group have ended when this returns or throws
// ServerError or std::system_error. A signal that asks this program to end waits until then.
// For programs of one thread.
std::string list_tools(const Server& server, const Settings& settings);

}  // namespace mcp_client

#endif  // MCP_CLIENT_CLIENT_H
