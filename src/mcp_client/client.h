// Asks a server of the Model Context Protocol for its tools, over its standard input and
// output.
#ifndef MCP_CLIENT_CLIENT_H
#define MCP_CLIENT_CLIENT_H

#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace mcp_client {

// How a server is started.
struct Server {
  std::string command;  // a path, or a name that PATH leads to
  std::vector<std::string> args;
  std::vector<std::pair<std::string, std::string>> env;  // added to the program's own
  std::optional<std::string> cwd;
};

struct Settings {
  std::chrono::milliseconds timeout{30000};         // for all answers together
  std::function<void(const std::string&)> warn;     // a line for a person
  std::function<void(const std::string&)> waiting;  // once, when a second has passed
};

// Begins with the server's command. What the server wrote to standard error last follows in
// lines of its own. Everything is safe to show at a terminal.
class ServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The tools of all pages as one JSON object, {"tools":[...]}, each in the bytes of the server.
// The server and what it started in its process group have ended when this returns or throws
// ServerError or std::system_error. A signal that asks this program to end waits until then.
// For programs of one thread.
std::string list_tools(const Server& server, const Settings& settings);

}  // namespace mcp_client

#endif  // MCP_CLIENT_CLIENT_H
