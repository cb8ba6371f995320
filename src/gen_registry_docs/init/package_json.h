// The programs of a package for Node.js.
#ifndef GEN_REGISTRY_DOCS_INIT_PACKAGE_JSON_H
#define GEN_REGISTRY_DOCS_INIT_PACKAGE_JSON_H

#include <filesystem>

#include "gen_registry_docs/init/start.h"

namespace gen_registry_docs::init {

// What "bin" of package.json names, run by node; none where there is no such file. A program
// that is not there has that as its fault, with the script that may make it. Throws
// InputError, FileError or DecodeError.
Entries entries_of_package_json(const std::filesystem::path& root);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_PACKAGE_JSON_H
