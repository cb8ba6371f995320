#include "mcp_client/conversation.h"

#include <algorithm>

#include "mcp_client/members.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using registry_docs::visible_in_quotes;
using std::chrono::milliseconds;

// How long a server may take to end by itself.
constexpr milliseconds patience{1000};

// From then on a person wonders.
constexpr milliseconds short_wait{1000};

std::string duration(milliseconds time) {
  const auto count = time.count();
  constexpr auto second = milliseconds::period::den;
  return count % second == 0 ? std::to_string(count / second) + " s"
                             : std::to_string(count) + " ms";
}

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

std::string error_in(std::string_view error) {
  const auto members = members_of(error);
  const auto text = members ? characters_of((*members)["message"]) : std::nullopt;
  return "the error " + visible_in_quotes(text ? std::string_view(*text) : error);
}

}  // namespace

Conversation::Conversation(const Server& server, const Settings& settings)
    : settings_(&settings),
      name_(registry_docs::visible(server.command)),
      start_(Clock::now()),
      connection_(server) {}

std::string_view Conversation::request(const std::string& method, const std::string& params,
                                       std::string& answer) {
  const std::string awaited = "answer to " + method;
  id_ = std::to_string(++requests_);
  connection_.send(R"({"jsonrpc":"2.0","id":)" + id_ + R"(,"method":")" + method +
                   R"(","params":)" + params + "}");
  for (;;) {
    answer = next_message(awaited);
    if (const auto result = result_in(answer, awaited)) return *result;
  }
}

void Conversation::notify(const std::string& method) {
  connection_.send(R"({"jsonrpc":"2.0","method":")" + method + R"("})");
}

void Conversation::end() { connection_.end(patience); }

// The next line that is not blank.
std::string Conversation::next_message(const std::string& awaited) {
  for (;;) {
    std::string line;
    const Event event = next_line(line, awaited);
    if (event != Event::line) fail_without_answer(awaited, event);
    if (!trimmed(line).empty()) return line;
  }
}

Event Conversation::next_line(std::string& line, const std::string& awaited) {
  const Clock::time_point last = start_ + settings_->timeout;
  if (!has_told_of_waiting_ && settings_->waiting) {
    const Event event = connection_.next(line, std::min(last, start_ + short_wait));
    if (event != Event::late || Clock::now() >= last) return event;
    has_told_of_waiting_ = true;
    settings_->waiting(name_ + ": waiting for the " + awaited);
  }
  return connection_.next(line, last);
}

// The result of the request at hand; nothing in a line that is not its answer.
std::optional<std::string_view> Conversation::result_in(std::string_view line,
                                                        const std::string& awaited) {
  const auto message = members_of(trimmed(line));
  if (!message) {
    if (settings_->warn) {
      settings_->warn(name_ + ": expected a JSON-RPC message in every line, found " +
                      visible_in_quotes(line));
    }
    return std::nullopt;
  }
  const std::string_view id = (*message)["id"];
  const std::string_view error = (*message)["error"];
  const std::string_view result = (*message)["result"];
  if (const auto method = (*message)["method"]; !method.empty()) {
    respond(method, id);
    return std::nullopt;
  }
  // Of an error without an id the server cannot say to what it is the answer.
  const bool is_answer = id == id_ || (id.empty() && !error.empty());
  if (!is_answer) return std::nullopt;
  if (!error.empty()) fail("an " + awaited, error_in(error));
  if (result.empty()) fail("a result in the " + awaited, "none");
  if (!result.starts_with('{')) fail("an object as the " + awaited, visible_in_quotes(result));
  return result;
}

// Answers a request of the server. A notification has no id.
void Conversation::respond(std::string_view method, std::string_view id) {
  if (id.empty()) return;
  const std::string outcome = characters_of(method) == "ping"
                                  ? R"("result":{})"
                                  : R"("error":{"code":-32601,"message":"Method not found"})";
  connection_.send(R"({"jsonrpc":"2.0","id":)" + std::string(id) + "," + outcome + "}");
}

void Conversation::fail_without_answer(const std::string& awaited, Event event) {
  if (event == Event::late) {
    fail("an " + awaited + " within " + duration(settings_->timeout), "none");
  }
  if (event == Event::interrupted) fail("an " + awaited, "a signal that asks to end");
  const std::string ending = connection_.end(patience);
  fail("an " + awaited, ending.empty() ? "the end of its output" : "that " + ending);
}

void Conversation::fail(const std::string& expected, const std::string& found) {
  connection_.end(milliseconds(0));
  std::string message = name_ + ": expected " + expected + ", found " + found;
  const std::string errors = quoted_lines(connection_.last_errors());
  if (!errors.empty()) message += "; its standard error ended with:" + errors;
  throw ServerError(message);
}

}  // namespace mcp_client
