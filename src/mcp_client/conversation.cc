#include "mcp_client/conversation.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "mcp_client/message.h"
#include "mcp_client/mismatch.h"
#include "registry_docs/text.h"
#include "text/join.h"

namespace mcp_client {
namespace {

using json::Document;
using json::Kind;
using json::MaybeNode;
using json::Node;
using json::Rules;
using registry_docs::visible_in_quotes;

constexpr std::string_view latest_legacy = "2025-11-25";
constexpr std::string_view modern = "2026-07-28";
constexpr std::array<std::string_view, 5> versions = {modern, latest_legacy, "2025-06-18",
                                                      "2025-03-26", "2024-11-05"};

constexpr const char* client_info =
    R"({"name":"registry-docs","version":")" REGISTRY_DOCS_VERSION R"("})";

// What every request of the modern era carries.
std::string metadata() {
  return R"("_meta":{"io.modelcontextprotocol/protocolVersion":")" + std::string(modern) +
         R"(","io.modelcontextprotocol/clientCapabilities":{},)" +
         R"("io.modelcontextprotocol/clientInfo":)" + client_info + "}";
}

constexpr std::string_view blank = " \t\r\n";

// Whether a line that cannot be read may have been meant as an answer, and not as one for a
// person.
bool looks_like_answer(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(blank);
  if (begin == std::string_view::npos || line[begin] != '{') return false;
  return std::ranges::any_of(
      std::array{R"("id")", R"("result")", R"("error")"},
      [line](std::string_view name) { return line.find(name) != std::string_view::npos; });
}

MaybeNode of_kind(const MaybeNode& value, Kind kind) {
  return value && value->kind() == kind ? value : std::nullopt;
}

}  // namespace

Conversation::Conversation(const Server& server,
                           const std::function<void(const std::string&)>& warn)
    : server_(&server), warn_(&warn) {
  server.protocol == Protocol::modern ? discover() : initialize();
}

std::string Conversation::take_outgoing() { return std::exchange(outgoing_, {}); }

std::string Conversation::failure(const std::string& expected,
                                  const std::string& found) const {
  const std::string before = first_error_ && step_ == Step::discover
                                 ? "; its answer to initialize was " + first_error_->text
                                 : "";
  return "expected " + expected + ", found " + found + before;
}

void Conversation::say(const std::string& members) {
  outgoing_ += R"({"jsonrpc":"2.0",)" + members + "}\n";
}

void Conversation::request(std::string_view method, const std::string& params) {
  method_ = method;
  id_ = std::to_string(++requests_);
  say(R"("id":)" + id_ + R"(,"method":")" + method_ + R"(","params":{)" + params + "}");
}

void Conversation::initialize() {
  step_ = Step::initialize;
  request("initialize", R"("protocolVersion":")" + std::string(latest_legacy) +
                            R"(","capabilities":{},"clientInfo":)" + client_info);
}

void Conversation::discover() {
  step_ = Step::discover;
  is_modern_ = true;
  request("server/discover", metadata());
}

void Conversation::request_page(const std::string& cursor) {
  std::string params = cursor.empty() ? "" : R"("cursor":)" + cursor;
  if (is_modern_) params += (params.empty() ? "" : ",") + metadata();
  request(all_lists[at_].method, params);
}

void Conversation::hear(std::string line) {
  constexpr std::array<std::string_view, 4> names = {"method", "id", "error", "result"};
  if (line.find_first_not_of(blank) == std::string::npos) return;
  const auto message = message_in(std::move(line));
  if (!message) return;
  const auto [method, id, error, result] = members_of(*message, names);
  if (method) return respond(*method, id);
  // Of an error without an id the server cannot say to what it is the answer.
  if (id ? !is_awaited(*id) : !error) return;
  if (error) return take_error(error_in(*error), id.has_value());
  take_result(*message, result);
}

// Nothing, after a warning, for a line that is none and hardly was meant as an answer.
std::unique_ptr<Document> Conversation::message_in(std::string line) const {
  const std::string shown = visible_in_quotes(line);
  const bool is_meant = looks_like_answer(line);
  try {
    return std::make_unique<Document>("its " + awaited(), std::move(line), Rules::message);
  } catch (const std::runtime_error& error) {  // whether it is no UTF-8, no JSON or no object
    if (is_meant) throw Mismatch(registry_docs::visible(error.what()));
    if (*warn_) {
      (*warn_)(server_->label + ": expected a JSON-RPC message in every line, found " + shown);
    }
    return nullptr;
  }
}

// Some servers give every id back as a text.
bool Conversation::is_awaited(const Node& id) const {
  return id.spelling() == id_ || (id.kind() == Kind::string && id.string() == id_);
}

// Answers a request of the server. A notification has no id.
void Conversation::respond(const Node& method, const MaybeNode& id) {
  if (!id) return;
  const bool is_ping = method.kind() == Kind::string && method.string() == "ping";
  say(R"("id":)" + std::string(id->spelling()) + "," +
      (is_ping ? R"("result":{})"
               : R"("error":{"code":-32601,"message":"Method not found"})"));
}

void Conversation::take_error(const Error& error, bool has_id) {
  if (step_ == Step::list) return take_list_error(error, has_id);
  if (step_ == Step::discover) return take_discovery_error(error);
  require_version(error.versions);
  if (server_->protocol == Protocol::legacy) throw Mismatch("an " + awaited(), error.text);
  first_error_ = error;
  discover();
}

void Conversation::take_discovery_error(const Error& error) {
  require_version(error.versions);
  if (!first_error_) throw Mismatch("an " + awaited(), error.text);
  throw Mismatch("an answer to initialize", first_error_->text);
}

// An error without an id may be the answer to something else, and so leaves no list empty.
void Conversation::take_list_error(const Error& error, bool has_id) {
  const bool is_announced = has_[at_];
  if (!has_id || (is_announced && !error.is_unknown_method)) {
    throw Mismatch("an " + awaited(), error.text);
  }
  if (is_announced && !all_lists[at_].is_often_lacking && *warn_) {
    (*warn_)(server_->label + ": expected an " + awaited() + ", as it announces \"" +
             std::string(all_lists[at_].capability) + "\", found " + error.text);
  }
  add(all_lists[at_].member, pages_.take());
  ++at_;
  request_next_list();
}

void Conversation::require_version(const std::vector<std::string>& supported) const {
  const auto is_spoken = [this](std::string_view version) {
    if (server_->protocol == Protocol::modern) return version == modern;
    if (server_->protocol == Protocol::legacy && version == modern) return false;
    return std::ranges::find(versions, version) != versions.end();
  };
  if (supported.empty() || std::ranges::any_of(supported, is_spoken)) return;
  const std::string legacy_versions = "up to " + std::string(latest_legacy);
  const std::string expected = server_->protocol == Protocol::modern ? std::string(modern)
                               : server_->protocol == Protocol::legacy
                                   ? legacy_versions
                                   : std::string(modern) + " or " + legacy_versions;
  throw Mismatch("a server that speaks the protocol " + expected,
                 "one that speaks " + visible_in_quotes(text::join(supported, ", ")));
}

void Conversation::take_result(Document& message, const MaybeNode& result) {
  if (!result) throw Mismatch("a result in the " + awaited(), "none");
  const std::string_view json = result->spelling();
  if (result->kind() != Kind::object) {
    throw Mismatch("an object as the " + awaited(), visible_in_quotes(json));
  }
  Document read("its " + awaited(), std::move(message).take(json), Rules::message);
  if (is_modern_) take_metadata(read);
  if (step_ != Step::list) return take_identity(read);
  const std::string cursor = pages_.add(all_lists[at_], std::move(read));
  if (!cursor.empty()) return request_page(cursor);
  add(all_lists[at_].member, pages_.take());
  ++at_;
  request_next_list();
}

// What every result of the modern era says of itself and of the server.
void Conversation::take_metadata(const Document& result) {
  const auto [type, about] =
      members_of(result, std::array<std::string_view, 2>{"resultType", "_meta"});
  if (type && type->spelling() != R"("complete")") {
    throw Mismatch("a complete " + awaited(),
                   "one of the type " + visible_in_quotes(type->spelling()));
  }
  if (!server_info_.empty() || !of_kind(about, Kind::object)) return;
  const Document members("_meta", std::string(about->spelling()), Rules::message);
  const MaybeNode info = Node(members).find("io.modelcontextprotocol/serverInfo");
  if (of_kind(info, Kind::object)) server_info_ = info->spelling();
}

void Conversation::take_identity(const Document& result) {
  constexpr std::array<std::string_view, 4> names = {"serverInfo", "instructions",
                                                     "capabilities", "supportedVersions"};
  const auto [info, instructions, capabilities, supported] = members_of(result, names);
  if (is_modern_) {
    const auto offered = texts_in(supported);
    require_version(offered);
    const bool is_offered =
        offered.empty() || std::ranges::find(offered, modern) != offered.end();
    if (!is_offered) {
      throw Mismatch(
          "a server that answers initialize or speaks the protocol " + std::string(modern),
          "one that speaks " + visible_in_quotes(text::join(offered, ", ")));
    }
  } else {
    if (of_kind(info, Kind::object)) server_info_ = info->spelling();
    say(R"("method":"notifications/initialized")");
  }
  if (of_kind(instructions, Kind::string)) instructions_ = instructions->spelling();
  begin_lists(capabilities);
}

void Conversation::begin_lists(const MaybeNode& capabilities) {
  if (of_kind(capabilities, Kind::object)) {
    const Document announced("capabilities", std::string(capabilities->spelling()),
                             Rules::message);
    for (std::size_t i = 0; i < all_lists.size(); ++i) {
      const MaybeNode found = Node(announced).find(all_lists[i].capability);
      has_[i] = found && found->kind() != Kind::null;
    }
  }
  step_ = Step::list;
  request_next_list();
}

// Tools are asked for in any case: some servers offer them without announcing them.
void Conversation::request_next_list() {
  while (at_ > 0 && at_ < all_lists.size() && !has_[at_]) ++at_;
  is_over_ = at_ == all_lists.size();
  if (!is_over_) request_page("");
}

void Conversation::add(std::string_view name, const std::string& json) {
  members_ += (members_.empty() ? "\"" : ",\"") + std::string(name) + "\":";
  members_ += json;
}

std::string Conversation::answer() && {
  std::string answer = "{";
  if (!server_info_.empty()) answer += R"("serverInfo":)" + server_info_ + ",";
  if (!instructions_.empty()) answer += R"("instructions":)" + instructions_ + ",";
  return std::move(members_.insert(0, answer) += '}');
}

}  // namespace mcp_client
