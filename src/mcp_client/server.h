// Servers to ask, how they are asked, and what comes of it.
#ifndef MCP_CLIENT_SERVER_H
#define MCP_CLIENT_SERVER_H

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mcp_client {

// The eras of the protocol: with a handshake, up to 2025-11-25, and without one, 2026-07-28.
enum class Protocol { automatic, legacy, modern };

struct Server {
  std::string label;    // what messages call it: one line, safe to show
  std::string command;  // a path, or a name that the server's PATH leads to
  std::vector<std::string> args = {};
  std::vector<std::pair<std::string, std::string>> env = {};  // added to the program's own
  std::optional<std::string> cwd = {};
  Protocol protocol = Protocol::automatic;
  std::chrono::milliseconds timeout{30000};  // from its start to its last answer
};

// A server that has not answered all.
struct Awaited {
  std::string label;
  std::string answer;  // which one: "answer to tools/list"
};

// Borrows nothing.
struct Progress {
  std::size_t answered = 0;  // or failed
  std::size_t asked = 0;
  std::vector<Awaited> awaited = {};
};

struct Settings {
  std::size_t at_once = 32;                           // as many servers run side by side
  std::function<void(const std::string&)> warn = {};  // a line for a person
  std::function<void(const Progress&)> waiting = {};  // after a second, and at each change
};

// Either is empty.
struct Outcome {
  // {"serverInfo":{...},"instructions":"...","tools":[...],"prompts":[...],"resources":[...],
  // "resourceTemplates":[...]} in this order, without what the server does not have; there are
  // always tools. Every value has the bytes of the server, a list those of all its pages.
  std::string answer = {};
  // Begins with the label. What the server wrote to standard error last follows in lines of
  // its own. Everything is safe to show at a terminal.
  std::string failure = {};
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_SERVER_H
