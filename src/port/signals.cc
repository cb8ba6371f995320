#include "port/signals.h"

#include <sys/signalfd.h>

#include <ctime>

namespace port {

Descriptor signal_file(const sigset_t& signals) {
  return Descriptor(require(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK), "signalfd"));
}

void take_signal(int signal) noexcept {
  sigset_t signals;
  ::sigemptyset(&signals);
  ::sigaddset(&signals, signal);
  const timespec no_time{};
  ::sigtimedwait(&signals, nullptr, &no_time);
}

}  // namespace port
