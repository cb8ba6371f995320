// A server as a process, the first of a session and a group of its own, and the pipes to it.
#ifndef MCP_CLIENT_PROCESS_H
#define MCP_CLIENT_PROCESS_H

#include <uv.h>

#include <functional>
#include <string>
#include <string_view>

#include "mcp_client/loop.h"
#include "mcp_client/server.h"

namespace mcp_client {

class Process {
 public:
  struct Events {
    std::function<void(std::string_view)> output;  // has come; nothing, when there is no more
    // The first process has ended, all that it wrote was told of, and what was left of the
    // group was killed: "it exited with code 1", "signal 9 (Killed) ended it". The last event.
    std::function<void(const std::string&)> end;
  };

  // Borrows the loop, which it must outlive.
  Process(Loop& loop, Events events) : loop_(&loop), events_(std::move(events)) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() = default;

  // Throws std::system_error when it does not start; then there are no events.
  void start(const Server& server);

  // Written as the server reads. A server that reads too little is heard no more meanwhile.
  void send(std::string text);

  void close_input();

  // Sends the signal to the whole group, while the first process runs.
  void signal(int number) const;

  // The last of what the server wrote to standard error.
  [[nodiscard]] const std::string& last_errors() const { return last_errors_; }

 private:
  void spawn(const Server& server);
  static void listen(uv_pipe_t& pipe);
  void hear();
  void take(uv_stream_t* from, ssize_t count, const char* bytes);
  void written(int failure);
  void drain(uv_pipe_t& pipe);
  void exited(const std::string& how);
  void close();

  Loop* loop_;
  Events events_;
  uv_process_t process_{};
  uv_pipe_t input_{};
  uv_pipe_t output_{};
  uv_pipe_t errors_{};
  bool is_running_ = false;
  bool is_heard_ = false;
  std::string last_errors_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_PROCESS_H
