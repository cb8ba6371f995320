// What a registry adds to the tools that a server answers.
#ifndef TESMO_SORVET_ADDITIONS_H
#define TESMO_SORVET_ADDITIONS_H

#include <string>
#include <vector>

#include "tesmo_sorvet/document/node.h"
#include "tesmo_sorvet/tool_registry.h"

namespace tesmo_sorvet {

// Adds, by name, the tier, the summary, the actions and, for each parameter, the actions that
// it applies to and its defaults by action, from the registry's member "tools", if it has one.
// Refuses a tool and a parameter that the server does not offer. Borrows from the registry and
// from `tiers`.
void add_declared(const Node& registry, const std::vector<std::string>& tiers, Tools& tools);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_ADDITIONS_H
