// The exchange of JSON-RPC messages with a server.
#ifndef MCP_CLIENT_CONVERSATION_H
#define MCP_CLIENT_CONVERSATION_H

#include <memory>
#include <optional>
#include <string>

#include "json/document.h"
#include "json/node.h"
#include "mcp_client/connection.h"
#include "mcp_client/server.h"

namespace mcp_client {

class Conversation {
 public:
  // Starts the server. Borrows both.
  Conversation(const Server& server, const Settings& settings);

  // Awaits the answer. Returns the object that is its result, as the bytes of the server.
  // `params` is JSON.
  std::string request(const std::string& method, const std::string& params);

  void notify(const std::string& method);

  // Has the server end, which has nothing more to do.
  void end();

  // Has the server end, and says what it did instead of what was expected.
  [[noreturn]] void fail(const std::string& expected, const std::string& found);

 private:
  std::string next_message(const std::string& awaited);
  Event next_line(std::string& line, const std::string& awaited);
  std::unique_ptr<json::Document> message_in(std::string line) const;
  std::optional<std::string> result_in(std::string line, const std::string& awaited);
  void respond(const json::Node& method, const json::MaybeNode& id);
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
