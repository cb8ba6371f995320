// The loop that waits for all servers at once.
#ifndef MCP_CLIENT_LOOP_H
#define MCP_CLIENT_LOOP_H

#include <uv.h>

#include <array>
#include <chrono>
#include <exception>
#include <functional>

namespace mcp_client {

// Throws std::system_error for a failure that libuv returns.
void require(int result, const char* call);

class Loop {
 public:
  // Throws std::system_error.
  Loop();
  // Closes what still is in it. Whatever was put in must live until then.
  ~Loop();
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  [[nodiscard]] uv_loop_t* get() { return &loop_; }

  // Carries out what libuv calls for, which must not throw through it. The first thing that is
  // thrown is kept, and `give_up` called.
  template <typename Work>
  void guard(Work work) noexcept {
    try {
      work();
    } catch (...) {
      if (!failure_) failure_ = std::current_exception();
      give_up();
    }
  }
  std::function<void()> give_up;

  // Runs until there is nothing to wait for. Throws what was kept.
  void run();

  // Room for what is being read.
  [[nodiscard]] uv_buf_t room() {
    return ::uv_buf_init(room_.data(), static_cast<unsigned>(room_.size()));
  }

 private:
  uv_loop_t loop_{};
  std::exception_ptr failure_;
  std::array<char, 1 << 16> room_{};
};

class Timer {
 public:
  // Calls `ring` whenever its time has come. Borrows the loop, which it lives as long as.
  Timer(Loop& loop, std::function<void()> ring);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer() = default;

  // Replaces the time that was set before.
  void set(std::chrono::milliseconds time);
  void stop() { ::uv_timer_stop(&timer_); }
  // Lets the loop end before the time has come.
  void make_optional() { ::uv_unref(reinterpret_cast<uv_handle_t*>(&timer_)); }

 private:
  Loop* loop_;
  std::function<void()> ring_;
  uv_timer_t timer_{};
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_LOOP_H
