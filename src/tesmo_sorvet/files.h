// The files that hold generated blocks, as the registry declares them.
#ifndef TESMO_SORVET_FILES_H
#define TESMO_SORVET_FILES_H

#include <filesystem>
#include <vector>

#include "registry_docs/host.h"
#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

// From the registry's member "files", or the default ones. The blocks of a command line are on
// offer only when the product has one. Refuses a path that leads out of `root`, by itself or
// through a link, and a file that is declared twice under whatever name.
std::vector<registry_docs::FileDeclaration> files(const Node& registry,
                                                  const registry_docs::Product& product,
                                                  const std::filesystem::path& root);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_FILES_H
