// Each tool's input schema, as the command line describes it.
#ifndef TESMO_SORVET_TOOL_SCHEMAS_H
#define TESMO_SORVET_TOOL_SCHEMAS_H

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "registry_docs/host.h"
#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

using Schemas =
    std::unordered_map<std::string, std::shared_ptr<const registry_docs::InputSchema>>;

// The input schema of every tool, by the tool's name: the one that the registry gives, as
// given, or else the one that its parameters make.
Schemas schemas(const Node& registry);

// "token_budget" as the command line spells it: "token-budget".
std::string snake_to_kebab(std::string_view name);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_SCHEMAS_H
