#include "mcp_client/client.h"

#include <set>
#include <string_view>

#include "mcp_client/conversation.h"
#include "mcp_client/members.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using registry_docs::visible_in_quotes;

constexpr const char* list_method = "tools/list";

// Members of an object that was read before.
Members read(std::string_view object) { return members_of(object).value(); }

void greet(Conversation& conversation) {
  std::string answer;
  conversation.request("initialize",
                       R"({"protocolVersion":"2025-11-25","capabilities":{},"clientInfo":)"
                       R"({"name":"gen_registry_docs","version":")" REGISTRY_DOCS_VERSION
                       R"("}})",
                       answer);
  conversation.notify("notifications/initialized");
}

// Appends the tools of a page. The first one is not copied, for it may be large.
void append(std::string& all, std::string& page, std::string_view tools) {
  const auto begin = static_cast<std::size_t>(tools.data() - page.data());
  const std::size_t end = begin + tools.size();
  if (all.empty()) {
    page.resize(end);
    all = std::move(page.replace(0, begin, R"({"tools":[)"));
  } else if (!tools.empty()) {
    if (!all.ends_with('[')) all += ',';
    all += tools;
  }
}

// The texts between the brackets.
std::string_view elements_of(std::string_view tools, Conversation& conversation) {
  if (!tools.starts_with('[')) {
    conversation.fail(std::string("an array of tools in the answer to ") + list_method,
                      tools.empty() ? "none" : visible_in_quotes(tools));
  }
  return trimmed(tools.substr(1, tools.size() - 2));
}

// Where the next page begins, as JSON; empty behind the last one.
std::string next_cursor(const Members& result, std::set<std::string>& seen,
                        Conversation& conversation) {
  std::string cursor(result["nextCursor"]);
  const std::string place = std::string("nextCursor in the answer to ") + list_method;
  if (cursor.empty() || cursor == "null") return {};
  if (!cursor.starts_with('"')) {
    conversation.fail("a string as " + place, visible_in_quotes(cursor));
  }
  if (!seen.insert(cursor).second) {
    conversation.fail("another " + place, visible_in_quotes(cursor) + " again");
  }
  return cursor;
}

std::string all_tools(Conversation& conversation) {
  std::string all;
  std::string cursor;
  std::set<std::string> seen;
  do {
    std::string page;
    const std::string params = cursor.empty() ? "{}" : R"({"cursor":)" + cursor + "}";
    const Members result = read(conversation.request(list_method, params, page));
    const std::string_view elements = elements_of(result["tools"], conversation);
    cursor = next_cursor(result, seen, conversation);
    append(all, page, elements);
  } while (!cursor.empty());
  all += "]}";
  return all;
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
