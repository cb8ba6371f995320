#include "port/signals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <ctime>

namespace port {

Descriptor signal_file(const sigset_t& signals) {
  return Descriptor(require(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd"));
}

void take_signal(const Descriptor& file) noexcept {
  signalfd_siginfo taken{};
  [[maybe_unused]] const ssize_t size = ::read(file.number(), &taken, sizeof taken);
}

void take_signal(int signal) noexcept {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, signal);
  const timespec no_time{};
  ::sigtimedwait(&signals, nullptr, &no_time);
}

}  // namespace port
