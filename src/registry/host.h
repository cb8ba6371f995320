// Any host: the generator's inputs, bound from a repository and its registry document.
#ifndef REGISTRY_HOST_H
#define REGISTRY_HOST_H

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "registry/server.h"
#include "registry_docs/host.h"
#include "registry_docs/registry_docs.h"

namespace registry {

// Where a repository keeps its registry document, relative to its root, unless it is the first
// host's, which is looked for before this.
inline constexpr const char* registry_path = "registry-docs.json";

// The registry file that the directory holds, if it does.
std::optional<std::filesystem::path> find_registry(const std::filesystem::path& directory);

// Where the declarations come from. "-" is standard input.
struct Sources {
  std::optional<std::string> registry = {};  // the repository's own when none is given
  std::optional<std::string> tools = {};     // a saved answer to tools/list
  // Returns the answer of the server that the registry declares, as JSON. Called when there is
  // such a server and no saved answer. What it throws passes on.
  std::function<std::string(const Server&)> ask = {};
  // Sees the answer, if one is taken, before anything is made of it.
  std::function<void(std::string_view json)> keep = {};
};

// What a registry document and the answer beside it come to.
struct Bound {
  std::shared_ptr<const registry_docs::Host> host;
  std::vector<registry_docs::GeneratedFile> files;  // their renderers borrow the host
};

// Binds the registry document, the answer to tools/list where there is one, and, if a file
// shall hold the rules block, the rules text of src/tesmo_sorvet/setup/config.py under the
// root. Owns all it holds. Throws InputError, FileError or DecodeError; the message begins
// with the file's name, the registry's as it is given here.
Bound bind(const std::filesystem::path& root, const Sources& sources);

// The host of a repository whose registry document, its own or the given one, needs no answer.
registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry = {});

}  // namespace registry

#endif  // REGISTRY_HOST_H
