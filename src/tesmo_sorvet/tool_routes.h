// Which call answers which need, as the registry file declares it.
#ifndef TESMO_SORVET_TOOL_ROUTES_H
#define TESMO_SORVET_TOOL_ROUTES_H

#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"
#include "registry_docs/host.h"

namespace tesmo_sorvet {

struct Route {
  std::string_view need;
  std::string_view call;
  std::string_view note;  // "{name}" stands for the fact of that name
  bool rules = true;      // whether the rules table lists it
};

// The routes in order. They borrow from the document.
std::vector<Route> routes(const json::Node& registry);

// The columns Need and Call of the routes that the rules list. No line feed at the end.
std::string rules_table(const std::vector<Route>& routes);

// The columns Need, Call and Notes of every route, the facts filled in once: a fact's own
// text is not searched for facts, and the name of an unknown one stays as written.
std::string skill_table(const std::vector<Route>& routes, const registry_docs::Facts& facts);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_ROUTES_H
