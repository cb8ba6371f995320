// The check, and how its outcome is shown.
#ifndef GEN_REGISTRY_DOCS_CHECK_H
#define GEN_REGISTRY_DOCS_CHECK_H

#include <string>
#include <string_view>

#include "gen_registry_docs/options.h"
#include "gen_registry_docs/workspace.h"

namespace gen_registry_docs {

// Returns the exit status. Throws what keeps the files from being checked.
int check(Workspace& workspace, const Options& options, std::string_view program);

// Prints, in the format that was asked for, that the check could not do its work.
void print_failure(const std::string& message, const Options& options);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_CHECK_H
