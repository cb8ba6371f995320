// How a server is asked, and that this failed.
#ifndef MCP_CLIENT_SERVER_H
#define MCP_CLIENT_SERVER_H

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

}  // namespace mcp_client

#endif  // MCP_CLIENT_SERVER_H
