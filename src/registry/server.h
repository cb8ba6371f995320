// How a live server is asked for its tools.
#ifndef REGISTRY_SERVER_H
#define REGISTRY_SERVER_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "json/node.h"

namespace registry {

// As the configuration files of MCP clients spell it.
struct Server {
  std::string command;
  std::vector<std::string> args = {};
  std::vector<std::pair<std::string, std::string>> env = {};  // beside the program's own
  std::optional<std::string> cwd = {};
};

// The registry's member "server", if it has one.
std::optional<Server> server(const json::Node& registry);

}  // namespace registry

#endif  // REGISTRY_SERVER_H
