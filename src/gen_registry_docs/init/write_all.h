// Writing files so that all of them are written or none.
#ifndef GEN_REGISTRY_DOCS_INIT_WRITE_ALL_H
#define GEN_REGISTRY_DOCS_INIT_WRITE_ALL_H

#include <filesystem>
#include <span>

#include "registry_docs/report.h"

namespace gen_registry_docs::init {

// Makes the files what they were reported to become. When one cannot be written, those before
// it are what they were again. Throws FileError.
void write_all(std::span<const registry_docs::FileReport> files,
               const std::filesystem::path& root);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_WRITE_ALL_H
