// The scripts of a Python project.
#ifndef GEN_REGISTRY_DOCS_INIT_PYPROJECT_H
#define GEN_REGISTRY_DOCS_INIT_PYPROJECT_H

#include <filesystem>

#include "gen_registry_docs/init/start.h"

namespace gen_registry_docs::init {

// What [project.scripts] of pyproject.toml names, run by uv where the project has its lock
// file; none where there is no such file. Throws InputError, FileError or DecodeError.
Entries entries_of_pyproject(const std::filesystem::path& root);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_PYPROJECT_H
