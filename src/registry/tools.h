// The tools of any server, as a registry document declares them or as the server answers.
#ifndef REGISTRY_TOOLS_H
#define REGISTRY_TOOLS_H

#include <vector>

#include "json/node.h"
#include "json_schema/fault.h"
#include "tesmo_sorvet/tool_registry.h"

namespace registry {

// What cannot be read of an input schema joins the faults, which name the tool.
//
// Both refuse a text that holds a block's marker. They borrow from the document and from the
// tiers.

// The tools of a registry document.
tesmo_sorvet::Tools declared_tools(const json::Node& registry,
                                   const tesmo_sorvet::Tiers& tiers,
                                   std::vector<json_schema::Fault>& faults);

// The tools of an answer to tools/list, of which only name, description and input schema are
// read; all are of the first tier.
tesmo_sorvet::Tools answered_tools(const json::Node& answer, const tesmo_sorvet::Tiers& tiers,
                                   std::vector<json_schema::Fault>& faults);

// Adds, by name, the tier, the summary, the actions and, for each parameter, the actions that
// it applies to and its defaults by action, from the registry's member "tools", if it has one.
// Refuses a tool and a parameter that the server does not offer. Borrows from the registry and
// from the tiers.
void add_declared(const json::Node& registry, const tesmo_sorvet::Tiers& tiers,
                  tesmo_sorvet::Tools& tools);

}  // namespace registry

#endif  // REGISTRY_TOOLS_H
