// How long something may take, for a reader.
#ifndef MCP_CLIENT_DURATION_H
#define MCP_CLIENT_DURATION_H

#include <chrono>
#include <string>

namespace mcp_client {

// In seconds, with no more digits than it takes: "30 s", "0.5 s".
inline std::string in_seconds(std::chrono::milliseconds time) {
  constexpr auto second = std::chrono::milliseconds::period::den;
  std::string text = std::to_string(time.count() / second);
  if (const auto rest = time.count() % second; rest != 0) {
    const std::string digits = std::to_string(second + rest).substr(1);
    text += "." + digits.substr(0, digits.find_last_not_of('0') + 1);
  }
  return text + " s";
}

}  // namespace mcp_client

#endif  // MCP_CLIENT_DURATION_H
