#include "tesmo_sorvet/tool_routes.h"

#include <utility>

#include "registry_docs/markdown.h"

namespace tesmo_sorvet {
namespace {

namespace markdown = registry_docs::markdown;

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

}  // namespace

std::vector<Route> routes(const json::Node& registry) {
  std::vector<Route> found;
  const auto declared = registry.find("routes");
  if (!declared) return found;
  declared->for_each_element([&](const json::Node& route) {
    const auto note = route.find("note");
    const auto rules = route.find("rules");
    found.push_back({.need = route.at("need").string(),
                     .call = route.at("call").string(),
                     .note = note ? note->string() : "",
                     .rules = !rules || rules->boolean()});
  });
  return found;
}

std::string rules_table(const std::vector<Route>& routes) {
  markdown::Table table({"Need", "Call"});
  for (const Route& route : routes) {
    if (route.rules) table.row().cell(route.need).code(route.call);
  }
  return std::move(table).text();
}

std::string skill_table(const std::vector<Route>& routes, const registry_docs::Facts& facts) {
  markdown::Table table({"Need", "Call", "Notes"});
  for (const Route& route : routes) {
    table.row().cell(route.need).code(route.call).cell(filled_in(route.note, facts));
  }
  return std::move(table).text();
}

}  // namespace tesmo_sorvet
