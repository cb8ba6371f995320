// What changed between two catalogs of a server, for the people who use its tools.
#ifndef REGISTRY_DOCS_CHANGES_CHANGES_H
#define REGISTRY_DOCS_CHANGES_CHANGES_H

#include <vector>

#include "registry_docs/catalog/catalog.h"
#include "registry_docs/changes/change.h"

namespace registry_docs::changes {

// The server first, then tools, prompts, resources, templates and groups, each list in the
// order before with what is new behind it. Equal catalogs have none, and each difference is
// told of once, where it is made. Whether a hint is given, or holds without that, is none; nor
// is the order of an object's members, but for that of parameters and of output fields.
//
// The catalogs' `raw` members must be documents by the rules of a registry.
std::vector<Change> changes(const catalog::Catalog& before, const catalog::Catalog& after);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_CHANGES_H
