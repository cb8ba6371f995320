// The tools and their tiers, as the registry file declares them.
#ifndef TESMO_SORVET_TOOL_REGISTRY_H
#define TESMO_SORVET_TOOL_REGISTRY_H

#include <memory>
#include <string>
#include <vector>

#include "registry_docs/host.h"
#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

// The tier names in order, ["core"] when the registry names none.
std::vector<std::string> tiers(const Node& registry);

// The tools in registry order. Refuses a name given twice and a tier that is none of
// `tiers`.
std::vector<std::shared_ptr<const registry_docs::ToolSpec>> tools(
    const Node& registry, const std::vector<std::string>& tiers);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_REGISTRY_H
