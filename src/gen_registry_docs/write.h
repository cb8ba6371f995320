// The write, and what is said when it is refused.
#ifndef GEN_REGISTRY_DOCS_WRITE_H
#define GEN_REGISTRY_DOCS_WRITE_H

#include <string_view>

#include "gen_registry_docs/options.h"
#include "gen_registry_docs/workspace.h"

namespace gen_registry_docs {

// Returns the exit status. Writes nothing where anything was left out. Throws what keeps the
// files from being looked at or written.
int write(const Workspace& workspace, const Options& options, std::string_view program);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_WRITE_H
