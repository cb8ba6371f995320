// Putting the markers of blocks into files.
#ifndef GEN_REGISTRY_DOCS_INIT_MARK_FILES_H
#define GEN_REGISTRY_DOCS_INIT_MARK_FILES_H

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "gen_registry_docs/init/options.h"
#include "registry_docs/report.h"

namespace gen_registry_docs::init {

struct MarkedBlock {
  std::string name;
  std::size_t level;  // of its first headings
};

// A file as it stands and as it becomes, and the blocks that are added.
struct MarkedFile {
  registry_docs::FileReport report;
  std::vector<MarkedBlock> blocks;
};

// The files in the order in which they are named first; one that is not there is made of its
// blocks alone. Writes nothing. Throws InputError for a file that is neither Markdown nor
// HTML, that has a marker of such a block already, or where the block would be none; for a
// heading that is not there once; and for a directory that is not there. Throws FileError or
// DecodeError for a file that cannot be read.
std::vector<MarkedFile> mark_files(const std::filesystem::path& root,
                                   std::span<const Wanted> wanted);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_MARK_FILES_H
