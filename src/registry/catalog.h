// The catalog of a server, from what it answered or from what the registry document declares.
#ifndef REGISTRY_CATALOG_H
#define REGISTRY_CATALOG_H

#include <vector>

#include "json/node.h"
#include "json_schema/fault.h"
#include "registry_docs/catalog/catalog.h"

namespace registry {

// The tools are those of the answer, if there is one, arranged as the registry document says.
// What cannot be read of their schemas joins the faults. Borrows from both documents.
registry_docs::catalog::Catalog catalog_of(const json::Node& registry,
                                           const json::MaybeNode& answer,
                                           std::vector<json_schema::Fault>& faults);

}  // namespace registry

#endif  // REGISTRY_CATALOG_H
