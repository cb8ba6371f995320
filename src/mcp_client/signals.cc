#include "mcp_client/signals.h"

#include "port/signals.h"

namespace mcp_client {
namespace {

bool takes_effect(int signal, const sigset_t& mask) {
  struct sigaction action {};
  ::sigaction(signal, nullptr, &action);
  return ::sigismember(&mask, signal) == 0 && action.sa_handler != SIG_IGN;
}

sigset_t signals_to_end(const sigset_t& mask) {
  sigset_t signals;
  ::sigemptyset(&signals);
  for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
    if (takes_effect(signal, mask)) ::sigaddset(&signals, signal);
  }
  return signals;
}

sigset_t only(int signal) {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, signal);
  return signals;
}

}  // namespace

SignalsHeld::SignalsHeld() {
  ::pthread_sigmask(SIG_SETMASK, nullptr, &mask_before_);
  sigset_t held = signals_to_end(mask_before_);
  pending_ = port::signal_file(held);
  child_end_ = port::signal_file(only(SIGCHLD));
  ::sigaddset(&held, SIGPIPE);
  ::sigaddset(&held, SIGCHLD);
  ::pthread_sigmask(SIG_BLOCK, &held, nullptr);
  // Where it is ignored, the system forgets how a server ended.
  struct sigaction standard {};
  standard.sa_handler = SIG_DFL;
  standard.sa_flags = SA_NOCLDSTOP;
  ::sigaction(SIGCHLD, &standard, &child_before_);
}

SignalsHeld::~SignalsHeld() {
  if (::sigismember(&mask_before_, SIGPIPE) == 0) port::take_signal(SIGPIPE);
  ::sigaction(SIGCHLD, &child_before_, nullptr);
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

void SignalsHeld::forget_child_end() const noexcept { port::take_signal(child_end_); }

}  // namespace mcp_client
