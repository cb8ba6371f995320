// The write, and what is said when it is refused.
#ifndef GEN_REGISTRY_DOCS_WRITE_H
#define GEN_REGISTRY_DOCS_WRITE_H

#include <filesystem>
#include <span>
#include <string_view>

#include "gen_registry_docs/options.h"
#include "registry_docs/registry_docs.h"

namespace gen_registry_docs {

// Returns the exit status. Throws what keeps the files from being looked at or written.
int write(std::span<const registry_docs::GeneratedFile> generated,
          const std::filesystem::path& root, const Options& options, std::string_view program);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_WRITE_H
