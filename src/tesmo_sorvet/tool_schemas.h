// Each tool's parameters and its input schema, which the registry declares together.
#ifndef TESMO_SORVET_TOOL_SCHEMAS_H
#define TESMO_SORVET_TOOL_SCHEMAS_H

#include <deque>
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
  std::vector<std::string_view> actions = {};  // that a property "action" of the schema lists
};

// What an input schema is read as: what its host declares, of which each key stands as it is
// given or is missing; or JSON Schema, whose every word is put into those of the tables.
enum class SchemaRules { as_declared, json_schema };

// From a tool's members "params" and "inputSchema". Each stands as given where both are, and
// must be in order; where one is, it makes the other as well. A refusal of the input schema
// names the tool. Borrows from the document, and from `texts`, which the texts that no
// document holds join.
Inputs inputs_of(const std::optional<Node>& params, const std::optional<Node>& input_schema,
                 SchemaRules rules, std::string_view tool, std::deque<std::string>& texts);

// "token_budget" as the command line spells it: "token-budget".
std::string snake_to_kebab(std::string_view name);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_SCHEMAS_H
