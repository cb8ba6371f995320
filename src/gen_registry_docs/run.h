// What the program does with its options.
#ifndef GEN_REGISTRY_DOCS_RUN_H
#define GEN_REGISTRY_DOCS_RUN_H

#include <string_view>

#include "gen_registry_docs/options.h"

namespace gen_registry_docs {

// Returns the exit status, or ends the program with it. `program` is its name as it was
// called. Throws what keeps the work from being done.
int run(const Options& options, std::string_view program);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_RUN_H
