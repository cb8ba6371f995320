// What changed between two tools of the same name.
#ifndef REGISTRY_DOCS_CHANGES_TOOLS_H
#define REGISTRY_DOCS_CHANGES_TOOLS_H

#include <string>
#include <vector>

#include "registry_docs/catalog/catalog.h"
#include "registry_docs/changes/change.h"

namespace registry_docs::changes {

// What is said where an entry differs in what is not told of by itself.
constexpr const char* changed_besides = "its entry changed besides";

void add_changes(const catalog::Tool& before, const catalog::Tool& after,
                 const std::string& place, std::vector<Change>& changes);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_TOOLS_H
