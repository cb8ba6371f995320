// Each tool's input schema, as the first host declares it and its command line spells it.
#ifndef TESMO_SORVET_TOOL_SCHEMAS_H
#define TESMO_SORVET_TOOL_SCHEMAS_H

#include <string>
#include <string_view>

#include "json/node.h"
#include "tesmo_sorvet/inputs.h"

namespace tesmo_sorvet {

// From an input schema of which each key stands word for word, or is missing, which the
// renderers say.
Inputs inputs_as_declared(const json::Node& declared);

// "token_budget" as the command line spells it: "token-budget".
std::string snake_to_kebab(std::string_view name);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_SCHEMAS_H
