// What the program does with its options.
#ifndef GEN_REGISTRY_DOCS_RUN_H
#define GEN_REGISTRY_DOCS_RUN_H

#include "gen_registry_docs/options.h"

namespace gen_registry_docs {

// Returns the exit status. Throws what keeps the work from being done.
int run(const Options& options);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_RUN_H
