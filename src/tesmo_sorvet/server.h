// How a live server is asked for its tools.
#ifndef TESMO_SORVET_SERVER_H
#define TESMO_SORVET_SERVER_H

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

// As the configuration files of MCP clients spell it.
struct Server {
  std::string command;
  std::vector<std::string> args = {};
  std::vector<std::pair<std::string, std::string>> env = {};  // beside the program's own
  std::optional<std::string> cwd = {};
};

// The registry's member "server", if it has one.
std::optional<Server> server(const Node& registry);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_SERVER_H
