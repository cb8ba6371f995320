#include "mcp_client/conversation.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "mcp_client/message.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using json::Document;
using json::Kind;
using json::MaybeNode;
using json::Node;
using json::Rules;
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

// The text of an error's member "message", or all of another error.
std::string error_in(const Node& error) {
  const std::string_view json = error.spelling();
  if (error.kind() != Kind::object) return "the error " + visible_in_quotes(json);
  const Document object("error", std::string(json), Rules::message);
  const MaybeNode text = Node(object).find("message");
  const bool is_told = text && text->kind() == Kind::string;
  return "the error " + visible_in_quotes(is_told ? text->string() : json);
}

bool is_blank(std::string_view line) {
  return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

Conversation::Conversation(const Server& server, const Settings& settings)
    : settings_(&settings),
      name_(registry_docs::visible(server.command)),
      start_(Clock::now()),
      connection_(server) {}

std::string Conversation::request(const std::string& method, const std::string& params) {
  const std::string awaited = "answer to " + method;
  id_ = std::to_string(++requests_);
  connection_.send(R"({"jsonrpc":"2.0","id":)" + id_ + R"(,"method":")" + method +
                   R"(","params":)" + params + "}");
  for (;;) {
    if (auto result = result_in(next_message(awaited), awaited)) return *std::move(result);
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
    if (!is_blank(line)) return line;
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

// Nothing, after a warning, for a line that is none.
std::unique_ptr<Document> Conversation::message_in(std::string line) const {
  const std::string shown = visible_in_quotes(line);
  try {
    return std::make_unique<Document>(name_, std::move(line), Rules::message);
  } catch (const std::runtime_error&) {  // whether it is no UTF-8, no JSON or no object
    if (settings_->warn) {
      settings_->warn(name_ + ": expected a JSON-RPC message in every line, found " + shown);
    }
    return nullptr;
  }
}

// The result of the request at hand; nothing in a line that is not its answer.
std::optional<std::string> Conversation::result_in(std::string line,
                                                   const std::string& awaited) {
  constexpr std::array<std::string_view, 4> names = {"method", "id", "error", "result"};
  const auto message = message_in(std::move(line));
  if (!message) return std::nullopt;
  const auto [method, id, error, result] = members_of(*message, names);
  if (method) {
    respond(*method, id);
    return std::nullopt;
  }
  // Of an error without an id the server cannot say to what it is the answer.
  const bool is_answer = id ? id->spelling() == id_ : error.has_value();
  if (!is_answer) return std::nullopt;
  if (error) fail("an " + awaited, error_in(*error));
  if (!result) fail("a result in the " + awaited, "none");
  const std::string_view json = result->spelling();
  if (result->kind() != Kind::object) {
    fail("an object as the " + awaited, visible_in_quotes(json));
  }
  return std::move(*message).take(json);
}

// Answers a request of the server. A notification has no id.
void Conversation::respond(const Node& method, const MaybeNode& id) {
  if (!id) return;
  const bool is_ping = method.kind() == Kind::string && method.string() == "ping";
  const std::string outcome =
      is_ping ? R"("result":{})" : R"("error":{"code":-32601,"message":"Method not found"})";
  connection_.send(R"({"jsonrpc":"2.0","id":)" + std::string(id->spelling()) + "," + outcome +
                   "}");
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
