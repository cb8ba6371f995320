// How a registry document arranges what a server offers.
#ifndef REGISTRY_ARRANGEMENT_H
#define REGISTRY_ARRANGEMENT_H

#include "json/node.h"
#include "registry_docs/catalog/catalog.h"

namespace registry {

// Whose tools a catalog holds.
enum class Tools { declared, answered };

// Puts the tools into the order that the member "order" says, gives them the summaries and the
// extras of "tools", and makes the groups of "groups" and "group_by". Refuses a tool of a
// group, or of "tools" beside an answer, that is not in the catalog, and a tool that no group
// holds. Borrows from the document.
void arrange(const json::Node& registry, Tools which,
             registry_docs::catalog::Catalog& catalog);

}  // namespace registry

#endif  // REGISTRY_ARRANGEMENT_H
