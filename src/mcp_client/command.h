// A server's command as the system takes it.
#ifndef MCP_CLIENT_COMMAND_H
#define MCP_CLIENT_COMMAND_H

#include <string>
#include <vector>

#include "mcp_client/server.h"

namespace mcp_client {

// Both lists end with a null. They borrow from the server and from each other.
class Command {
 public:
  explicit Command(const Server& server);
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  ~Command() = default;

  [[nodiscard]] char** arguments() { return arguments_.data(); }
  // This program's variables, and those of the server.
  [[nodiscard]] char** environment() { return environment_.data(); }

 private:
  std::vector<std::string> texts_;
  std::vector<std::string> variables_;
  std::vector<char*> arguments_;
  std::vector<char*> environment_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_COMMAND_H
