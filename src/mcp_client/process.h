// A server as a process, the first of a group of its own, and the pipes to it.
#ifndef MCP_CLIENT_PROCESS_H
#define MCP_CLIENT_PROCESS_H

#include <sys/types.h>

#include <csignal>
#include <string>

#include "mcp_client/server.h"
#include "port/descriptor.h"

namespace mcp_client {

class Process {
 public:
  // Starts it with the signal mask. Throws ServerError.
  Process(const Server& server, const sigset_t& mask);
  ~Process() { reap(); }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  // The other ends of its standard input, output and error; none of them blocks.
  port::Descriptor input;
  port::Descriptor output;
  port::Descriptor errors;

  // Whether the first process has ended.
  [[nodiscard]] bool has_exited() const noexcept;

  // Sends the signal to the whole group, if the first process was not reaped.
  void signal(int number) const noexcept {
    if (id_ > 0) ::kill(-id_, number);
  }

  // Kills what is left of the group. Returns how the first process ended: "it exited with code
  // 1", "signal 9 (Killed) ended it".
  std::string end();

 private:
  int reap() noexcept;

  pid_t id_ = 0;  // none when it was reaped
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_PROCESS_H
