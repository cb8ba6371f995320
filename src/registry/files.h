// The files that hold generated blocks, as the registry declares them.
#ifndef REGISTRY_FILES_H
#define REGISTRY_FILES_H

#include <filesystem>
#include <vector>

#include "json/node.h"
#include "registry_docs/host.h"

namespace registry {

// From the registry's member "files", or the default ones. The blocks of a command line are on
// offer only when the product has one. Refuses a path that leads out of `root`, by itself or
// through a link, and a file that is declared twice under whatever name.
std::vector<registry_docs::FileDeclaration> files(const json::Node& registry,
                                                  const registry_docs::Product& product,
                                                  const std::filesystem::path& root);

}  // namespace registry

#endif  // REGISTRY_FILES_H
