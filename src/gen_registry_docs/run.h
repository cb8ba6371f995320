// What the program does with its options.
#ifndef GEN_REGISTRY_DOCS_RUN_H
#define GEN_REGISTRY_DOCS_RUN_H

#include <string>

#include "gen_registry_docs/options.h"

namespace gen_registry_docs {

// Prints to standard error, for a person.
void print_error(const std::string& text);

// Returns the exit status. Throws what keeps the work from being done.
int run(const Options& options);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_RUN_H
