// What the blocks call the server whose tools they list.
#ifndef REGISTRY_PRODUCT_H
#define REGISTRY_PRODUCT_H

#include "json/node.h"
#include "registry_docs/host.h"

namespace registry {

// From the registry's member "product"; what it leaves out is the first host's.
registry_docs::Product product(const json::Node& registry);

}  // namespace registry

#endif  // REGISTRY_PRODUCT_H
