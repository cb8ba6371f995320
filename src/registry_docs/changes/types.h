// What a change of types does, as fields spell them.
#ifndef REGISTRY_DOCS_CHANGES_TYPES_H
#define REGISTRY_DOCS_CHANGES_TYPES_H

#include <string_view>
#include <vector>

#include "registry_docs/changes/change.h"

namespace registry_docs::changes {

// The parts of a union: "string", "(integer or null)[]".
using Types = std::vector<std::string_view>;

// An integer is a number, and all are any. Names of other kinds stand for themselves.
Effect effect_of_types(const Types& before, const Types& after);

// Whether both have the same parts, in any order.
bool are_same_types(const Types& left, const Types& right);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_TYPES_H
