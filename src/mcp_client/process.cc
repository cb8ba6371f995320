#include "mcp_client/process.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <memory>
#include <utility>

#include "mcp_client/command.h"
#include "port/descriptor.h"

namespace mcp_client {
namespace {

using port::Descriptor;

// As much as is kept of standard error.
constexpr std::size_t tail = 2000;

// A server that does not read the answers to its requests gets no more of them.
constexpr std::size_t most_outgoing = 1 << 20;

uv_handle_t* handle(void* of) { return static_cast<uv_handle_t*>(of); }
uv_stream_t* stream(uv_pipe_t& pipe) { return reinterpret_cast<uv_stream_t*>(&pipe); }
Process* owner(const void* of) {
  return static_cast<Process*>(static_cast<const uv_handle_t*>(of)->data);
}

void close(void* of) {
  if (::uv_is_closing(handle(of)) == 0) ::uv_close(handle(of), nullptr);
}

enum class Direction { to_server, from_server };

// Opens our end of a pipe, and returns the server's. It is a pipe and no socket, since a shell
// can open only the first by the name /dev/stderr.
Descriptor open(Loop& loop, uv_pipe_t& ours, Direction direction) {
  const bool is_read = direction == Direction::from_server;
  std::array<uv_file, 2> ends{};  // the one to read from and the one to write to
  require(
      ::uv_pipe(ends.data(), is_read ? UV_NONBLOCK_PIPE : 0, is_read ? 0 : UV_NONBLOCK_PIPE),
      "uv_pipe");
  Descriptor theirs(ends[is_read ? 1 : 0]);
  const int file = ends[is_read ? 0 : 1];
  require(::uv_pipe_init(loop.get(), &ours, 0), "uv_pipe_init");
  const int failure = ::uv_pipe_open(&ours, file);
  if (failure != 0) ::close(file);
  require(failure, "uv_pipe_open");
  return theirs;
}

uv_stdio_container_t inherited(const Descriptor& file) {
  uv_stdio_container_t container{};
  container.flags = UV_INHERIT_FD;
  container.data.fd = file.number();
  return container;
}

std::string ending(std::int64_t status, int number) {
  if (number == 0) return "it exited with code " + std::to_string(status);
  return "signal " + std::to_string(number) + " (" + ::strsignal(number) + ") ended it";
}

struct Write {
  uv_write_t request{};
  std::string text;
};

}  // namespace

void Process::start(const Server& server) {
  try {
    spawn(server);
  } catch (...) {
    close();
    throw;
  }
  is_running_ = true;
  hear();
  listen(errors_);
}

void Process::spawn(const Server& server) {
  process_.data = input_.data = output_.data = errors_.data = this;
  const Descriptor in = open(*loop_, input_, Direction::to_server);
  const Descriptor out = open(*loop_, output_, Direction::from_server);
  const Descriptor error = open(*loop_, errors_, Direction::from_server);
  std::array files = {inherited(in), inherited(out), inherited(error)};
  Command command(server);
  uv_process_options_t options{};
  options.file = server.command.c_str();
  options.args = command.arguments();
  options.env = command.environment();
  options.cwd = server.cwd ? server.cwd->c_str() : nullptr;
  options.flags = UV_PROCESS_DETACHED;
  options.stdio_count = static_cast<int>(files.size());
  options.stdio = files.data();
  options.exit_cb = [](uv_process_t* process, std::int64_t status, int number) {
    Process* const self = owner(process);
    self->loop_->guard([&] { self->exited(ending(status, number)); });
  };
  require(::uv_spawn(loop_->get(), &process_, &options), "uv_spawn");
}

void Process::hear() {
  is_heard_ = true;
  listen(output_);
}

void Process::listen(uv_pipe_t& pipe) {
  const auto allocate = [](uv_handle_t* from, std::size_t, uv_buf_t* room) {
    *room = owner(from)->loop_->room();
  };
  const auto read = [](uv_stream_t* from, ssize_t count, const uv_buf_t* room) {
    Process* const self = owner(from);
    self->loop_->guard([&] { self->take(from, count, room->base); });
  };
  ::uv_read_start(stream(pipe), allocate, read);
}

// What was read, or a negative count at the end.
void Process::take(uv_stream_t* from, ssize_t count, const char* bytes) {
  if (count == 0) return;  // There was nothing to read after all.
  const std::string_view text(bytes, static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  if (count < 0) ::uv_read_stop(from);
  if (from == stream(output_)) return events_.output(text);
  last_errors_ += text;
  if (last_errors_.size() > tail) last_errors_.erase(0, last_errors_.size() - tail);
}

void Process::send(std::string text) {
  if (text.empty() || ::uv_is_closing(handle(&input_)) != 0) return;
  auto write = std::make_unique<Write>();
  write->text = std::move(text);
  write->request.data = write.get();
  const uv_buf_t bytes =
      ::uv_buf_init(write->text.data(), static_cast<unsigned>(write->text.size()));
  const auto done = [](uv_write_t* request, int failure) {
    const std::unique_ptr<Write> ended(static_cast<Write*>(request->data));
    owner(request->handle)->written(failure);
  };
  if (::uv_write(&write->request, stream(input_), &bytes, 1, done) != 0) return close_input();
  static_cast<void>(write.release());
  if (::uv_stream_get_write_queue_size(stream(input_)) < most_outgoing) return;
  is_heard_ = false;
  ::uv_read_stop(stream(output_));
}

// A server that reads no more may still have something to say.
void Process::written(int failure) {
  if (!is_running_ || failure == UV_ECANCELED) return;
  if (failure != 0) return close_input();
  const bool has_room = ::uv_stream_get_write_queue_size(stream(input_)) < most_outgoing;
  if (!is_heard_ && has_room) hear();
}

void Process::close_input() {
  ::mcp_client::close(&input_);
  if (!is_heard_) hear();
}

void Process::signal(int number) const {
  if (is_running_) ::kill(-process_.pid, number);
}

// What an ended server has written is there. What something outside its group may still write
// there is not waited for.
void Process::drain(uv_pipe_t& pipe) {
  int file = -1;
  int left = 0;
  if (::uv_is_closing(handle(&pipe)) != 0 || ::uv_fileno(handle(&pipe), &file) != 0) return;
  if (::ioctl(file, FIONREAD, &left) != 0) return;
  const uv_buf_t room = loop_->room();
  while (left > 0) {
    const ssize_t count =
        ::read(file, room.base, std::min(room.len, static_cast<std::size_t>(left)));
    if (count <= 0) return;
    left -= static_cast<int>(count);
    take(stream(pipe), count, room.base);
  }
}

// Its number was that of its group, and is nothing else's so shortly after.
void Process::exited(const std::string& how) {
  signal(SIGKILL);
  is_running_ = false;
  drain(output_);
  drain(errors_);
  close();
  events_.end(how);
}

void Process::close() {
  for (void* each : {handle(&process_), handle(&input_), handle(&output_), handle(&errors_)}) {
    if (handle(each)->type != UV_UNKNOWN_HANDLE) ::mcp_client::close(each);
  }
}

}  // namespace mcp_client
