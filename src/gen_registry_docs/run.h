// What the program does with its options.
#ifndef GEN_REGISTRY_DOCS_RUN_H
#define GEN_REGISTRY_DOCS_RUN_H

#include <string_view>

#include "gen_registry_docs/options.h"

namespace gen_registry_docs {

// Prints a line to standard error, for a person. What a terminal would act on is escaped.
void print_error(std::string_view message);

// Returns the exit status, or ends the program with it. Throws what keeps the work from being
// done.
int run(const Options& options);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_RUN_H
