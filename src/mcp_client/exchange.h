// One server: started, asked and ended.
#ifndef MCP_CLIENT_EXCHANGE_H
#define MCP_CLIENT_EXCHANGE_H

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "mcp_client/conversation.h"
#include "mcp_client/line_buffer.h"
#include "mcp_client/loop.h"
#include "mcp_client/process.h"
#include "mcp_client/server.h"

namespace mcp_client {

class Exchange {
 public:
  // `ended` is called when a server that was started has ended. Borrows the loop, which it
  // must outlive, the server and the settings.
  Exchange(Loop& loop, const Server& server, const Settings& settings,
           std::function<void()> ended);

  // Returns whether it started; if not, there is an outcome.
  bool start();

  // Has the server end at once, as this program is asked to.
  void interrupt();

  [[nodiscard]] bool is_running() const { return stage_ != Stage::none; }
  [[nodiscard]] Awaited awaited() const { return {server_->label, conversation_.awaited()}; }
  // When it does not run.
  Outcome take_outcome() { return std::move(outcome_); }

 private:
  // The server is asked; may end by itself; is to end at once; is killed.
  enum class Stage { none, asking, leaving, terminating, killed };
  using Clock = std::chrono::steady_clock;

  void take(std::string_view output);
  void hear(std::string_view output);
  void ring();
  void leave(std::chrono::milliseconds time);
  void terminate();
  void fail(const std::string& message);
  void finish(const std::string& how);
  void refuse(const std::string& expected, const std::string& reason);
  [[nodiscard]] std::string late() const;

  const Server* server_;
  std::function<void()> ended_;
  Conversation conversation_;
  LineBuffer lines_;
  Process process_;
  Timer timer_;
  Stage stage_ = Stage::none;
  Clock::time_point last_;  // moment for an answer
  std::string failure_;     // without the label
  Outcome outcome_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_EXCHANGE_H
