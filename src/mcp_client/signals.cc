#include "mcp_client/signals.h"

#include <algorithm>
#include <utility>

namespace mcp_client {

SignalsHeld::SignalsHeld() {
  ::pthread_sigmask(SIG_SETMASK, nullptr, &mask_before_);
  ::sigaction(SIGCHLD, nullptr, &child_before_);
  ::sigaction(SIGPIPE, nullptr, &pipe_before_);
  for (const int number : to_end) {
    struct sigaction before {};
    ::sigaction(number, nullptr, &before);
    const bool is_blocked = ::sigismember(&mask_before_, number) == 1;
    if (!is_blocked && before.sa_handler != SIG_IGN) watched_.push_back({number, before});
  }
  caught_.reserve(watched_.size());
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  sigset_t child;
  ::sigemptyset(&child);
  ::sigaddset(&child, SIGCHLD);
  ::pthread_sigmask(SIG_UNBLOCK, &child, nullptr);
}

SignalsHeld::~SignalsHeld() {
  ::sigaction(SIGCHLD, &child_before_, nullptr);
  ::sigaction(SIGPIPE, &pipe_before_, nullptr);
  for (const Watched& each : watched_) ::sigaction(each.number, &each.before, nullptr);
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
  for (const int number : caught_) static_cast<void>(std::raise(number));
}

void SignalsHeld::watch(Loop& loop, std::function<void()> asked_to_end) {
  asked_to_end_ = std::move(asked_to_end);
  for (Watched& each : watched_) {
    require(::uv_signal_init(loop.get(), &each.handle), "uv_signal_init");
    each.handle.data = this;
    const auto catch_it = [](uv_signal_t* handle, int number) {
      auto* const self = static_cast<SignalsHeld*>(handle->data);
      auto& caught = self->caught_;
      if (std::ranges::find(caught, number) == caught.end()) caught.push_back(number);
      self->asked_to_end_();
    };
    require(::uv_signal_start(&each.handle, catch_it, each.number), "uv_signal_start");
    ::uv_unref(reinterpret_cast<uv_handle_t*>(&each.handle));
  }
}

// The loop may have caught one that it has not called for yet.
void SignalsHeld::close(Loop& loop) {
  sigset_t signals;
  ::sigemptyset(&signals);
  for (const Watched& each : watched_) ::sigaddset(&signals, each.number);
  ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  ::uv_run(loop.get(), UV_RUN_NOWAIT);
}

}  // namespace mcp_client
