// Any host: a repository and its registry document, bound to its generated files.
#ifndef REGISTRY_HOST_H
#define REGISTRY_HOST_H

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "registry/documents.h"
#include "registry/layout_blocks.h"
#include "registry_docs/host.h"
#include "registry_docs/registry_docs.h"

namespace registry {

// What a registry document and the answer beside it come to.
struct Bound {
  // Null where no block of the first host's kinds is made, or no layout.
  std::shared_ptr<const registry_docs::Host> host = {};
  std::shared_ptr<LayoutBlocks> layouts = {};
  std::vector<registry_docs::GeneratedFile> files = {};  // their renderers borrow both
  std::vector<std::string> warnings = {};  // what could not be read, and is shown as "any"
};

// Binds the registry document, the answer to tools/list where there is one, and, if a file
// shall hold the rules block, the rules text of src/tesmo_sorvet/setup/config.py under the
// root. Owns all it holds. Throws InputError, FileError or DecodeError; the message begins
// with the file's name, the registry's as it is given here.
Bound bind(const std::filesystem::path& root, const Sources& sources);

// The host of a repository whose registry document, its own or the given one, needs no answer;
// an empty one where layouts make all blocks.
registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry = {});

}  // namespace registry

#endif  // REGISTRY_HOST_H
