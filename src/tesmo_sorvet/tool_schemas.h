// Each tool's parameters and its input schema, which the registry declares together.
#ifndef TESMO_SORVET_TOOL_SCHEMAS_H
#define TESMO_SORVET_TOOL_SCHEMAS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/host.h"
#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

struct Inputs {
  std::vector<registry_docs::ParamSpec> params = {};
  registry_docs::InputSchema schema = {};
};

// From a tool's members "params" and "inputSchema". Each stands as given where both are, and
// must be in order; where one is, it makes the other as well. Borrows from the document.
Inputs inputs_of(const std::optional<Node>& params, const std::optional<Node>& input_schema);

// "token_budget" as the command line spells it: "token-budget".
std::string snake_to_kebab(std::string_view name);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_SCHEMAS_H
