// The servers of the file that MCP clients read.
#ifndef GEN_REGISTRY_DOCS_INIT_CLIENTS_FILE_H
#define GEN_REGISTRY_DOCS_INIT_CLIENTS_FILE_H

#include <filesystem>

#include "gen_registry_docs/init/start.h"

namespace gen_registry_docs::init {

// The entries of .mcp.json that have a command; none where there is no such file. Throws
// InputError, FileError or DecodeError.
Entries entries_of_clients_file(const std::filesystem::path& root);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_CLIENTS_FILE_H
