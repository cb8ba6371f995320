// The signals that would end this program before its servers, or by a server that has gone.
#ifndef MCP_CLIENT_SIGNALS_H
#define MCP_CLIENT_SIGNALS_H

#include <uv.h>

#include <array>
#include <csignal>
#include <functional>
#include <vector>

#include "mcp_client/loop.h"

namespace mcp_client {

// Keeps the signals that ask this program to end from taking effect until this goes out of
// scope, but for those that it ignores or blocks itself, and those of a broken pipe for good.
// Lets those of a child's end through.
class SignalsHeld {
 public:
  SignalsHeld();
  ~SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

  // Calls `asked_to_end` for each of them. Nothing waits for them. Lives longer than the loop.
  // Throws std::system_error.
  void watch(Loop& loop, std::function<void()> asked_to_end);

  // To be called when the loop has run: what comes from now on waits for the end of the scope.
  void close(Loop& loop);

 private:
  static constexpr std::array<int, 4> to_end = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

  struct Watched {
    int number;
    struct sigaction before;  // which a loop replaces
    uv_signal_t handle{};
  };

  sigset_t mask_before_{};
  struct sigaction child_before_ {};
  struct sigaction pipe_before_ {};
  std::vector<Watched> watched_;
  std::function<void()> asked_to_end_;
  std::vector<int> caught_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_SIGNALS_H
