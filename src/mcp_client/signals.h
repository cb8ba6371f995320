// The signals that would end this program before its servers, or by a server that has gone.
#ifndef MCP_CLIENT_SIGNALS_H
#define MCP_CLIENT_SIGNALS_H

#include <csignal>

#include "port/descriptor.h"

namespace mcp_client {

// Holds back the signals that ask this program to end, but for those that it ignores, and
// those of a broken pipe, and lets those of a child's end through. The first take their effect
// when this goes out of scope; a broken pipe is never told of.
class SignalsHeld {
 public:
  SignalsHeld();
  ~SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

  // Readable while a signal that asks to end waits.
  [[nodiscard]] int pending() const noexcept { return pending_.number(); }

 private:
  sigset_t mask_before_{};
  struct sigaction child_before_ {};  // which a loop replaces
  port::Descriptor pending_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_SIGNALS_H
