#include "mcp_client/connection.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>

namespace mcp_client {
namespace {

using std::chrono::milliseconds;

// How long a server may take to end, once it was asked to.
constexpr milliseconds patience_with_end{1000};

// As much as is kept of standard error.
constexpr std::size_t tail = 2000;

// A server that does not read the answers to its requests gets no more of them.
constexpr std::size_t most_outgoing = 1 << 20;

int time_left(Clock::time_point until) {
  const auto left = std::chrono::ceil<milliseconds>(until - Clock::now()).count();
  constexpr auto most = milliseconds::rep{std::numeric_limits<int>::max()};
  return static_cast<int>(std::clamp(left, milliseconds::rep{0}, most));
}

// Waits until something can be done with one of the files, or is to be said of it.
template <std::size_t size>
void wait(std::array<pollfd, size>& files, Clock::time_point until) {
  if (::poll(files.data(), size, time_left(until)) >= 0) return;
  if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "poll");
  for (pollfd& file : files) file.revents = 0;
}

}  // namespace

Connection::~Connection() {
  try {
    end(milliseconds(0));
  } catch (const std::exception&) {  // Then the process is killed at once.
  }
}

void Connection::send(std::string_view line) {
  outgoing_ += line;
  outgoing_ += '\n';
}

Event Connection::next(std::string& line, Clock::time_point until) {
  for (;;) {
    if (is_interrupted_) return Event::interrupted;
    if (Clock::now() >= until) return Event::late;
    if (auto next = lines_.take()) {
      line = std::move(*next);
      return Event::line;
    }
    if (is_over_) return Event::end_of_output;
    exchange(until);
  }
}

// Waits until something has happened and sees to it.
void Connection::exchange(Clock::time_point until) {
  const bool has_exited = process_.has_exited();
  const short output_event = outgoing_.size() < most_outgoing ? POLLIN : 0;
  const short input_event = outgoing_.empty() ? 0 : POLLOUT;
  std::array<pollfd, 5> files{{{process_.output.number(), output_event, 0},
                               {process_.errors.number(), POLLIN, 0},
                               {process_.input.number(), input_event, 0},
                               {held_.child_end(), POLLIN, 0},
                               {held_.pending(), POLLIN, 0}}};
  wait(files, has_exited ? Clock::now() : until);
  const auto& [output, errors, input, child_end, signals] = files;
  if (child_end.revents != 0) held_.forget_child_end();
  is_interrupted_ = signals.revents != 0;
  if (output.revents != 0) lines_.add(read(process_.output));
  if (errors.revents != 0) read_errors();
  if (input.revents != 0) write();
  // What an ended server has written is there.
  is_over_ = !process_.output.is_open() || (has_exited && output.revents == 0);
}

// What can be read now. Closes the file at its end. Borrows from the room.
std::string_view Connection::read(port::Descriptor& file) {
  const ssize_t count = ::read(file.number(), room_.data(), room_.size());
  if (count > 0) return {room_.data(), static_cast<std::size_t>(count)};
  if (count == 0 || (errno != EAGAIN && errno != EINTR)) file.close();
  return {};
}

void Connection::read_errors() {
  errors_ += read(process_.errors);
  if (errors_.size() > tail) errors_.erase(0, errors_.size() - tail);
}

void Connection::write() {
  const ssize_t count = ::write(process_.input.number(), outgoing_.data(), outgoing_.size());
  if (count >= 0) {
    outgoing_.erase(0, static_cast<std::size_t>(count));
  } else if (errno != EAGAIN && errno != EINTR) {
    // The server reads no more; it may still have something to say.
    process_.input.close();
    outgoing_.clear();
  }
}

std::string Connection::end(milliseconds patience) {
  process_.input.close();
  if (ends_within(patience, held_.pending())) return process_.end();
  process_.signal(SIGTERM);
  ends_within(patience_with_end, -1);
  process_.end();
  return "";
}

// Waits for the end of the process and of what it wrote by then. A signal at `interruption`
// ends the patience.
bool Connection::ends_within(milliseconds patience, int interruption) {
  const Clock::time_point until = Clock::now() + patience;
  for (;;) {
    const bool has_exited = process_.has_exited();
    std::array<pollfd, 4> files{{{held_.child_end(), POLLIN, 0},
                                 {process_.output.number(), POLLIN, 0},
                                 {process_.errors.number(), POLLIN, 0},
                                 {interruption, POLLIN, 0}}};
    wait(files, has_exited ? Clock::now() : until);
    const auto& [child_end, output, errors, signals] = files;
    if (child_end.revents != 0) held_.forget_child_end();
    if (output.revents != 0) read(process_.output);
    if (errors.revents != 0) read_errors();
    if (has_exited && errors.revents == 0) return true;
    if (signals.revents != 0 || Clock::now() >= until) return has_exited;
  }
}

std::string_view Connection::last_errors() const { return errors_; }

}  // namespace mcp_client
