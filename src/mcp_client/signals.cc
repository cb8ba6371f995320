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

sigset_t only(int signal) {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, signal);
  return signals;
}

Descriptor file_of(const sigset_t& signals) {
  return Descriptor(require(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd"));
}

}  // namespace

SignalsHeld::SignalsHeld() {
  ::pthread_sigmask(SIG_SETMASK, nullptr, &mask_before_);
  sigset_t held = signals_to_end(mask_before_);
  pending_ = file_of(held);
  child_end_ = file_of(only(SIGCHLD));
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
  const sigset_t broken_pipe = only(SIGPIPE);
  const timespec no_time{};
  if (::sigismember(&mask_before_, SIGPIPE) == 0) {
    ::sigtimedwait(&broken_pipe, nullptr, &no_time);
  }
  ::sigaction(SIGCHLD, &child_before_, nullptr);
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

void SignalsHeld::forget_child_end() const noexcept {
  signalfd_siginfo signal{};
  [[maybe_unused]] const ssize_t size = ::read(child_end_.number(), &signal, sizeof signal);
}

}  // namespace mcp_client
