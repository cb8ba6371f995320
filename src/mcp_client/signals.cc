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

}  // namespace

SignalsHeld::SignalsHeld() {
  ::pthread_sigmask(SIG_SETMASK, nullptr, &mask_before_);
  ::sigaction(SIGCHLD, nullptr, &child_before_);
  const sigset_t held = signals_to_end(mask_before_);
  pending_ = port::signal_file(held);
  sigset_t mask = mask_before_;
  for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM}) {
    if (::sigismember(&held, signal) == 1) ::sigaddset(&mask, signal);
  }
  ::sigaddset(&mask, SIGPIPE);
  ::sigdelset(&mask, SIGCHLD);
  ::pthread_sigmask(SIG_SETMASK, &mask, nullptr);
}

SignalsHeld::~SignalsHeld() {
  if (::sigismember(&mask_before_, SIGPIPE) == 0) port::take_signal(SIGPIPE);
  ::sigaction(SIGCHLD, &child_before_, nullptr);
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

}  // namespace mcp_client
