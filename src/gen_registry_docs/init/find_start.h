// Finding out how a repository's server is started.
#ifndef GEN_REGISTRY_DOCS_INIT_FIND_START_H
#define GEN_REGISTRY_DOCS_INIT_FIND_START_H

#include <filesystem>

#include "gen_registry_docs/init/options.h"
#include "gen_registry_docs/init/start.h"

namespace gen_registry_docs::init {

// By the command that was given; else as the first file of the repository says that names a
// server, or the one that was asked for by its name. Throws InputError or UsageError where
// none does, where one names several and none of them is called as all of it, and for a
// program that is not there; FileError or DecodeError for a file that cannot be read.
Start find_start(const std::filesystem::path& root, const Options& options);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_FIND_START_H
