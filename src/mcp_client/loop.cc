#include "mcp_client/loop.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace mcp_client {

void require(int result, const char* call) {
  if (result < 0) throw std::system_error(-result, std::generic_category(), call);
}

Loop::Loop() { require(::uv_loop_init(&loop_), "uv_loop_init"); }

Loop::~Loop() {
  ::uv_walk(
      &loop_,
      [](uv_handle_t* handle, void*) {
        if (::uv_is_closing(handle) == 0) ::uv_close(handle, nullptr);
      },
      nullptr);
  ::uv_run(&loop_, UV_RUN_DEFAULT);
  ::uv_loop_close(&loop_);
}

void Loop::run() {
  ::uv_run(&loop_, UV_RUN_DEFAULT);
  if (failure_) std::rethrow_exception(failure_);
}

Timer::Timer(Loop& loop, std::function<void()> ring) : loop_(&loop), ring_(std::move(ring)) {
  ::uv_timer_init(loop.get(), &timer_);  // which cannot fail
  timer_.data = this;
}

void Timer::set(std::chrono::milliseconds time) {
  ::uv_update_time(loop_->get());
  const auto rung = [](uv_timer_t* timer) {
    auto* const self = static_cast<Timer*>(timer->data);
    self->loop_->guard(self->ring_);
  };
  const auto count = std::max(time.count(), decltype(time.count()){0});
  ::uv_timer_start(&timer_, rung, static_cast<std::uint64_t>(count), 0);
}

}  // namespace mcp_client
