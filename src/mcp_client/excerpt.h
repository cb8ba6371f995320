// What a message repeats of what a server wrote.
#ifndef MCP_CLIENT_EXCERPT_H
#define MCP_CLIENT_EXCERPT_H

#include <string>
#include <string_view>

namespace mcp_client {

// Up to 200 bytes of a text, made safe for a terminal, and "..." for the rest.
std::string excerpt(std::string_view text);

// The excerpt between two quotes.
std::string in_quotes(std::string_view text);

}  // namespace mcp_client

#endif  // MCP_CLIENT_EXCERPT_H
