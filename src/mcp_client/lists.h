// What a server can be asked to list, and the pages in which it answers.
#ifndef MCP_CLIENT_LISTS_H
#define MCP_CLIENT_LISTS_H

#include <array>
#include <set>
#include <string>
#include <string_view>

#include "json/document.h"

namespace mcp_client {

struct List {
  std::string_view method;
  std::string_view member;        // of the result
  std::string_view capability;    // by which a server announces it
  bool is_often_lacking = false;  // many that announce it offer none, and do not know of it
};

inline constexpr std::array<List, 4> all_lists = {
    {{"tools/list", "tools", "tools"},
     {"prompts/list", "prompts", "prompts"},
     {"resources/list", "resources", "resources"},
     {"resources/templates/list", "resourceTemplates", "resources", true}}};

// The pages of a list.
class Pages {
 public:
  // Adds the page that is the result of a request. Returns where the next one begins, as
  // JSON; empty behind the last one. Throws Mismatch.
  std::string add(const List& list, json::Document&& result);

  // What stands in all of them, as one array. Leaves none.
  std::string take();

 private:
  std::string elements_;
  std::set<std::string> cursors_;
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_LISTS_H
