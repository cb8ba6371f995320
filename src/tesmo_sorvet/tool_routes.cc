#include "tesmo_sorvet/tool_routes.h"

#include "registry_docs/markdown.h"
#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

namespace markdown = registry_docs::markdown;
using Rows = std::vector<std::vector<std::string>>;

std::string filled_in(std::string_view note, const registry_docs::Facts& facts) {
  std::string text;
  while (true) {
    const std::size_t open = note.find('{');
    text += note.substr(0, open);
    if (open == std::string_view::npos) return text;
    note.remove_prefix(open + 1);
    const std::size_t close = note.find_first_of("{}");
    const auto fact = close != std::string_view::npos && note[close] == '}'
                          ? facts.find(note.substr(0, close))
                          : facts.end();
    if (fact == facts.end()) {
      text += '{';
    } else {
      text += fact->second;
      note.remove_prefix(close + 1);
    }
  }
}

std::string joined_table(const std::vector<std::string>& header, const Rows& rows) {
  std::string text;
  for (const std::string& line : markdown::table(header, rows)) {
    text += (text.empty() ? "" : "\n") + line;
  }
  return text;
}

}  // namespace

std::vector<Route> routes(const Node& registry) {
  std::vector<Route> found;
  const auto declared = registry.find("routes");
  if (!declared) return found;
  declared->for_each_element([&](const Node& route) {
    const auto rules = route.find("rules");
    found.push_back({.need = std::string(route.at("need").string()),
                     .call = std::string(route.at("call").string()),
                     .note = string_of(route, "note"),
                     .rules = !rules || rules->boolean()});
  });
  return found;
}

std::string rules_table(const std::vector<Route>& routes) {
  Rows rows;
  for (const Route& route : routes) {
    if (route.rules) rows.push_back({markdown::cell(route.need), markdown::code(route.call)});
  }
  return joined_table({"Need", "Call"}, rows);
}

std::string skill_table(const std::vector<Route>& routes, const registry_docs::Facts& facts) {
  Rows rows;
  for (const Route& route : routes) {
    rows.push_back({markdown::cell(route.need), markdown::code(route.call),
                    markdown::cell(filled_in(route.note, facts))});
  }
  return joined_table({"Need", "Call", "Notes"}, rows);
}

}  // namespace tesmo_sorvet
