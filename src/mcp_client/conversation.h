// The exchange of JSON-RPC messages with a server.
#ifndef MCP_CLIENT_CONVERSATION_H
#define MCP_CLIENT_CONVERSATION_H

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "mcp_client/connection.h"
#include "mcp_client/server.h"

namespace mcp_client {

class Conversation {
 public:
  // Starts the server. Borrows both.
  Conversation(const Server& server, const Settings& settings);

  // Awaits the answer and puts it into `answer`. Returns the object that is its result, which
  // borrows from `answer`. `params` is JSON.
  std::string_view request(const std::string& method, const std::string& params,
                           std::string& answer);

  void notify(const std::string& method);

  // Has the server end, which has nothing more to do.
  void end();

  // Has the server end, and says what it did instead of what was expected.
  [[noreturn]] void fail(const std::string& expected, const std::string& found);

 private:
  std::string next_message(const std::string& awaited);
  Event next_line(std::string& line, const std::string& awaited);
  std::optional<std::string_view> result_in(std::string_view line, const std::string& awaited);
  void respond(std::string_view method, std::string_view id);
  [[noreturn]] void fail_without_answer(const std::string& awaited, Event event);

  const Settings* settings_;
  std::string name_;
  Clock::time_point start_;
  bool has_told_of_waiting_ = false;
  std::string id_;  // of the request at hand
  unsigned requests_ = 0;
  Connection connection_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_CONVERSATION_H
