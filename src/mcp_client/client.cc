#include "mcp_client/client.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>

#include "mcp_client/conversation.h"
#include "mcp_client/message.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using json::MaybeNode;
using registry_docs::visible_in_quotes;

constexpr const char* list_method = "tools/list";

void greet(Conversation& conversation) {
  conversation.request("initialize",
                       R"({"protocolVersion":"2025-11-25","capabilities":{},"clientInfo":)"
                       R"({"name":"gen_registry_docs","version":")" REGISTRY_DOCS_VERSION
                       R"("}})");
  conversation.notify("notifications/initialized");
}

// The bytes between the brackets, without the white space around them.
std::string_view elements_of(const MaybeNode& tools, Conversation& conversation) {
  if (!tools || tools->kind() != json::Kind::array) {
    conversation.fail(std::string("an array of tools in the answer to ") + list_method,
                      tools ? visible_in_quotes(tools->spelling()) : "none");
  }
  constexpr std::string_view around = " \t\r\n";
  std::string_view elements = tools->spelling();
  elements = elements.substr(1, elements.size() - 2);
  elements.remove_prefix(std::min(elements.find_first_not_of(around), elements.size()));
  return elements.substr(0, elements.find_last_not_of(around) + 1);
}

// Where the next page begins, as JSON; empty behind the last one.
std::string cursor_in(const MaybeNode& next_cursor, std::set<std::string>& seen,
                      Conversation& conversation) {
  if (!next_cursor) return {};
  std::string cursor(next_cursor->spelling());
  const std::string place = std::string("nextCursor in the answer to ") + list_method;
  if (next_cursor->kind() != json::Kind::string) {
    conversation.fail("a string as " + place, visible_in_quotes(cursor));
  }
  if (!seen.insert(cursor).second) {
    conversation.fail("another " + place, visible_in_quotes(cursor) + " again");
  }
  return cursor;
}

void append(std::string& all, std::string elements) {
  if (all.empty()) {
    all = std::move(elements);
  } else if (!elements.empty()) {
    all += "," + elements;
  }
}

std::string all_tools(Conversation& conversation) {
  constexpr std::array<std::string_view, 2> names = {"tools", "nextCursor"};
  std::string all;
  std::string cursor;
  std::set<std::string> seen;
  do {
    const std::string params = cursor.empty() ? "{}" : R"({"cursor":)" + cursor + "}";
    json::Document result(list_method, conversation.request(list_method, params),
                          json::Rules::message);
    const auto [tools, next_cursor] = members_of(result, names);
    const std::string_view elements = elements_of(tools, conversation);
    cursor = cursor_in(next_cursor, seen, conversation);
    append(all, std::move(result).take(elements));
  } while (!cursor.empty());
  return R"({"tools":[)" + std::move(all) + "]}";
}

}  // namespace

std::string list_tools(const Server& server, const Settings& settings) {
  Conversation conversation(server, settings);
  greet(conversation);
  std::string tools = all_tools(conversation);
  conversation.end();
  return tools;
}

}  // namespace mcp_client
