// The signals that would end this program before its server, or by a server that has gone.
#ifndef MCP_CLIENT_SIGNALS_H
#define MCP_CLIENT_SIGNALS_H

#include <csignal>

#include "port/descriptor.h"

namespace mcp_client {

// Holds back the signals that ask this program to end, but for those that it ignores, and
// those of a broken pipe and of a child's end. The first take their effect when this goes out
// of scope; a broken pipe is never told of.
class SignalsHeld {
 public:
  SignalsHeld();
  ~SignalsHeld();
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

  // Readable while a signal that asks to end waits.
  [[nodiscard]] int pending() const noexcept { return pending_.number(); }
  // Readable when a child may have ended since that was forgotten last.
  [[nodiscard]] int child_end() const noexcept { return child_end_.number(); }
  void forget_child_end() const noexcept;
  // What a program that is started has to find.
  [[nodiscard]] const sigset_t& mask_before() const noexcept { return mask_before_; }

 private:
  sigset_t mask_before_{};
  struct sigaction child_before_ {};
  port::Descriptor pending_;
  port::Descriptor child_end_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_SIGNALS_H
