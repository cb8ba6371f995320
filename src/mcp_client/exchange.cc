#include "mcp_client/exchange.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

#include "mcp_client/duration.h"
#include "mcp_client/mismatch.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using std::chrono::milliseconds;

// How long a server that has closed its output may take to end, since its status tells why;
// and how long any may take once it was told to.
constexpr milliseconds patience_for_status{500};
constexpr milliseconds last_patience{1000};

// How long one that has answered all may take to end by itself. Many wait for a signal though
// their input is closed: a part of the time that it took before, so that this is no loss.
milliseconds patience_with(std::chrono::steady_clock::duration taken) {
  constexpr auto part = 32;
  return std::clamp(std::chrono::duration_cast<milliseconds>(taken / part), milliseconds{5},
                    patience_for_status);
}

// Of one line.
constexpr std::size_t most_bytes = 1 << 28;

// Lines, each indented.
std::string quoted_lines(std::string_view text) {
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines += "\n  " + registry_docs::visible(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// Why the server cannot start in its directory, if it cannot.
int directory_failure(const Server& server) {
  struct stat status {};
  if (!server.cwd) return 0;
  if (::stat(server.cwd->c_str(), &status) != 0) return errno;
  return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
}

}  // namespace

Exchange::Exchange(Loop& loop, const Server& server, const Settings& settings,
                   std::function<void()> ended)
    : server_(&server),
      ended_(std::move(ended)),
      conversation_(server, settings.warn),
      process_(loop, {[this](std::string_view output) { take(output); },
                      [this](const std::string& how) { finish(how); }}),
      timer_(loop, [this] { ring(); }) {}

bool Exchange::start() {
  // The system does not say whether it was the program or its directory that failed.
  if (const int failure = directory_failure(*server_); failure != 0) {
    refuse("to start in " + registry_docs::visible(*server_->cwd),
           ": " + std::generic_category().message(failure));
    return false;
  }
  try {
    process_.start(*server_);
  } catch (const std::system_error& error) {
    refuse("a program that can be started",
           " " + registry_docs::visible_in_quotes(server_->command) + ": " +
               error.code().message());
    return false;
  }
  stage_ = Stage::asking;
  last_ = Clock::now() + server_->timeout;
  timer_.set(server_->timeout);
  process_.send(conversation_.take_outgoing());
  return true;
}

void Exchange::refuse(const std::string& expected, const std::string& reason) {
  outcome_.failure = server_->label + ": expected " + expected + ", found" + reason;
}

// Nothing is the end of the output: how the server ends then tells why.
void Exchange::take(std::string_view output) {
  if (stage_ != Stage::asking) return;
  if (output.empty()) return leave(patience_for_status);
  try {
    hear(output);
  } catch (const Mismatch& mismatch) {
    fail(mismatch.what());
  }
}

void Exchange::hear(std::string_view output) {
  lines_.add(output);
  while (auto line = lines_.take()) {
    if (Clock::now() >= last_) throw Mismatch(late());
    conversation_.hear(std::move(*line));
    if (conversation_.is_over()) {
      return leave(patience_with(server_->timeout - (last_ - Clock::now())));
    }
  }
  if (lines_.size() > most_bytes) {
    throw Mismatch("an " + conversation_.awaited() + " of at most 256 MiB", "a longer line");
  }
  process_.send(conversation_.take_outgoing());
}

std::string Exchange::late() const {
  return conversation_.failure(
      "an " + conversation_.awaited() + " within " + in_seconds(server_->timeout), "none");
}

void Exchange::ring() {
  if (stage_ == Stage::asking) {
    fail(late());
  } else if (stage_ == Stage::leaving) {
    terminate();
  } else if (stage_ == Stage::terminating) {
    stage_ = Stage::killed;
    process_.signal(SIGKILL);
  }
}

void Exchange::leave(std::chrono::milliseconds time) {
  stage_ = Stage::leaving;
  process_.close_input();
  timer_.set(time);
}

void Exchange::terminate() {
  stage_ = Stage::terminating;
  process_.close_input();
  process_.signal(SIGTERM);
  timer_.set(last_patience);
}

void Exchange::fail(const std::string& message) {
  failure_ = message;
  terminate();
}

void Exchange::interrupt() {
  if (stage_ == Stage::leaving) terminate();
  if (stage_ != Stage::asking) return;
  fail(conversation_.failure("an " + conversation_.awaited(), "a signal that asks to end"));
}

void Exchange::finish(const std::string& how) {
  timer_.stop();
  const bool ended_by_itself = stage_ == Stage::asking || stage_ == Stage::leaving;
  stage_ = Stage::none;
  lines_ = LineBuffer();
  if (conversation_.is_over() && failure_.empty()) {
    outcome_.answer = std::move(conversation_).answer();
    return ended_();
  }
  if (failure_.empty()) {
    failure_ =
        conversation_.failure("an " + conversation_.awaited(),
                              ended_by_itself ? "that " + how : "the end of its output");
  }
  const std::string errors = quoted_lines(process_.last_errors());
  outcome_.failure = server_->label + ": " + failure_ +
                     (errors.empty() ? "" : "; its standard error ended with:" + errors);
  ended_();
}

}  // namespace mcp_client
