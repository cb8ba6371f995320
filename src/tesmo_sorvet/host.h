// The native host: the generator's inputs, bound from a repository and its registry file.
#ifndef TESMO_SORVET_HOST_H
#define TESMO_SORVET_HOST_H

#include <filesystem>
#include <optional>
#include <string>

#include "registry_docs/host.h"

namespace tesmo_sorvet {

// Where a repository keeps its registry file, relative to its root.
inline constexpr const char* registry_path = "src/tesmo_sorvet/tool_registry.json";

// Binds the host from the registry file, "-" for standard input and the repository's own
// when none is given, and from the rules text of src/tesmo_sorvet/setup/config.py under the
// root. The host owns all it holds. Throws RegistryError, FileError or DecodeError; the
// message begins with the file's name, the registry's as it is given here.
registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry = {});

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_HOST_H
