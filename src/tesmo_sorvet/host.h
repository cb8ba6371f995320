// The first host: the generator's inputs as its registry document declares them.
#ifndef TESMO_SORVET_HOST_H
#define TESMO_SORVET_HOST_H

#include <filesystem>
#include <memory>
#include <vector>

#include "json/document.h"
#include "json/node.h"
#include "registry_docs/host.h"
#include "tesmo_sorvet/tool_registry.h"
#include "tesmo_sorvet/tool_routes.h"
#include "tesmo_sorvet/workers/api_endpoints.h"

namespace tesmo_sorvet {

// Where the first host keeps its registry, relative to the repository's root.
inline constexpr const char* registry_path = "src/tesmo_sorvet/tool_registry.json";

// What a registry declares of its tools.
struct Declarations {
  std::vector<std::shared_ptr<const json::Document>> documents;  // that the rest borrows from
  Tiers tiers;
  Tools tools;
  std::vector<Route> routes;
  Frameworks frameworks;
};

// The host that shares the declarations.
registry_docs::Host host_of(const std::shared_ptr<const Declarations>& declared);

// Adds the rules text of src/tesmo_sorvet/setup/config.py under the root, if a file shall hold
// the rules block. Throws InputError, FileError or DecodeError.
void add_rules_text(registry_docs::Host& host, const std::filesystem::path& root);

// Binds the first host. It owns all it holds, the document too, of which it keeps the texts.
// Throws InputError, FileError or DecodeError; the message begins with the name of the
// document, or of the rules text's file.
registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::shared_ptr<json::Document>& document);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_HOST_H
