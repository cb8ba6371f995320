// `registry-docs init`: the first registry of a repository, and the markers of its lists.
#ifndef GEN_REGISTRY_DOCS_INIT_INIT_H
#define GEN_REGISTRY_DOCS_INIT_INIT_H

#include <string_view>

#include "gen_registry_docs/init/options.h"

namespace gen_registry_docs::init {

// Finds out how the server is started, asks it, and writes registry-docs.json and the markers
// of the blocks that were named, or shows both. All is looked at before anything is written:
// what is written is what a check takes. Returns the exit status. `program` is what the user
// called. Throws UsageError, and whatever else hinders it from doing any of that.
int run(const Options& options, std::string_view program);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_INIT_H
