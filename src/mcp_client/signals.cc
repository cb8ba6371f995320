#include "mcp_client/signals.h"

#include <sys/signalfd.h>

#include <ctime>

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
  sigset_t held = signals_to_end(mask_before_);
  pending_ =
      Descriptor(require(::signalfd(-1, &held, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd"));
  ::sigaddset(&held, SIGPIPE);
  ::pthread_sigmask(SIG_BLOCK, &held, nullptr);
  // Where it is ignored, the system forgets how a server ended.
  struct sigaction standard {};
  standard.sa_handler = SIG_DFL;
  ::sigaction(SIGCHLD, &standard, &child_before_);
}

SignalsHeld::~SignalsHeld() {
  sigset_t broken_pipe;
  ::sigemptyset(&broken_pipe);
  ::sigaddset(&broken_pipe, SIGPIPE);
  const timespec no_time{};
  if (::sigismember(&mask_before_, SIGPIPE) == 0) {
    ::sigtimedwait(&broken_pipe, nullptr, &no_time);
  }
  ::sigaction(SIGCHLD, &child_before_, nullptr);
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

}  // namespace mcp_client
