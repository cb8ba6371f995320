// What the blocks call the server whose tools they list.
#ifndef TESMO_SORVET_PRODUCT_H
#define TESMO_SORVET_PRODUCT_H

#include "registry_docs/host.h"
#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

// From the registry's member "product"; what it leaves out is the first host's.
registry_docs::Product product(const Node& registry);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_PRODUCT_H
