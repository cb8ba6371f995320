// What the blocks call the server whose tools they list.
#ifndef REGISTRY_PRODUCT_H
#define REGISTRY_PRODUCT_H

#include <string_view>

#include "json/node.h"
#include "registry_docs/host.h"

namespace registry {

// Whether a sentence of a block can hold the text: one visible line without a comment.
bool is_phrase(std::string_view text);

// From the registry's member "product"; what it leaves out is the first host's.
registry_docs::Product product(const json::Node& registry);

}  // namespace registry

#endif  // REGISTRY_PRODUCT_H
