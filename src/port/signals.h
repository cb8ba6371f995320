// Signals that are blocked, and looked at when it suits.
#ifndef PORT_SIGNALS_H
#define PORT_SIGNALS_H

#include <csignal>

#include "port/descriptor.h"

namespace port {

// A file that poll(2) finds readable while one of these signals, which must be blocked, waits.
// It does not pass to a program that is started. Throws std::system_error.
Descriptor signal_file(const sigset_t& signals);

// Takes a signal, which must be blocked, away if it waits.
void take_signal(int signal) noexcept;

}  // namespace port

#endif  // PORT_SIGNALS_H
