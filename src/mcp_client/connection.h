// A server that runs: the lines it writes, those written to it, and its end.
#ifndef MCP_CLIENT_CONNECTION_H
#define MCP_CLIENT_CONNECTION_H

#include <array>
#include <chrono>
#include <string>
#include <string_view>

#include "mcp_client/line_buffer.h"
#include "mcp_client/process.h"
#include "mcp_client/server.h"
#include "mcp_client/signals.h"

namespace mcp_client {

using Clock = std::chrono::steady_clock;

enum class Event { line, end_of_output, late, interrupted };

class Connection {
 public:
  // Starts the server. Throws ServerError.
  explicit Connection(const Server& server) : process_(server, held_.mask_before()) {}
  // Asks a server that still runs to end at once, and kills it when it does not.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Written as the server reads, while next() waits.
  void send(std::string_view line);

  // Waits for the next line that the server writes.
  Event next(std::string& line, Clock::time_point until);

  // Closes the server's standard input and has it end: by itself within `patience`, or else
  // by SIGTERM and at last by SIGKILL. Returns how it ended by itself, as Process::end does,
  // or an empty text.
  std::string end(std::chrono::milliseconds patience);

  // The last of what the server wrote to standard error.
  [[nodiscard]] std::string_view last_errors() const;

 private:
  void exchange(Clock::time_point until);
  bool ends_within(std::chrono::milliseconds patience, int interruption);
  std::string_view read(port::Descriptor& file);
  void read_errors();
  void write();

  SignalsHeld held_;  // until the process has ended
  Process process_;
  LineBuffer lines_;
  std::string outgoing_;
  std::string errors_;
  bool is_over_ = false;         // the server writes no more lines
  bool is_interrupted_ = false;  // a signal asks this program to end
  std::array<char, 1 << 16> room_{};
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_CONNECTION_H
