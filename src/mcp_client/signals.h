// The signals that would end this program before its server, or by a server that has gone.
#ifndef MCP_CLIENT_SIGNALS_H
#define MCP_CLIENT_SIGNALS_H

#include <csignal>

#include "mcp_client/descriptor.h"

namespace mcp_client {

// Holds back the signals that ask this program to end, for those that it does not ignore, and
// SIGPIPE. At the end the former take their effect, and the latter never was.
class SignalsHeld {
 public:
  SignalsHeld();
  ~SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

  // Readable while a signal that asks to end waits.
  [[nodiscard]] int pending() const noexcept { return pending_.number(); }
  // What a program that is started has to find.
  [[nodiscard]] const sigset_t& mask_before() const noexcept { return mask_before_; }

 private:
  sigset_t mask_before_{};
  struct sigaction child_before_ {};
  Descriptor pending_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_SIGNALS_H
