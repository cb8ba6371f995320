// How a live server is started and asked.
#ifndef REGISTRY_SERVER_H
#define REGISTRY_SERVER_H

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "json/node.h"
#include "registry/variables.h"

namespace registry {

// The versions of the Model Context Protocol that a server is spoken to in.
enum class Protocol : std::uint8_t {
  any,     // which one it speaks is found out
  legacy,  // up to 2025-11-25
  modern   // from 2026-07-28 on
};

// As the configuration files of MCP clients spell it.
struct Server {
  std::string label;  // what messages call it: no value of a variable is in it
  std::string command;
  std::vector<std::string> args = {};
  std::vector<std::pair<std::string, std::string>> env = {};  // beside the program's own
  std::optional<std::string> cwd = {};
  Protocol protocol = Protocol::any;
  std::optional<std::chrono::milliseconds> timeout = {};
  std::vector<Secret> secrets = {};
};

// The server that `declared` says: an object, or the name of an entry of "mcpServers" in the
// .mcp.json under the root. `name` is what messages call it; without one they show its
// command. Members of an object that are none of a server's are the caller's to refuse.
Server server(const json::Node& declared, std::string_view name,
              const std::filesystem::path& root, Variables variables);

// The members of a server that is declared as an object.
std::span<const std::string_view> server_members();

}  // namespace registry

#endif  // REGISTRY_SERVER_H
