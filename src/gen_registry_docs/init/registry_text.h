// The text of a new registry-docs.json.
#ifndef GEN_REGISTRY_DOCS_INIT_REGISTRY_TEXT_H
#define GEN_REGISTRY_DOCS_INIT_REGISTRY_TEXT_H

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "gen_registry_docs/init/mark_files.h"
#include "gen_registry_docs/init/start.h"

namespace gen_registry_docs::init {

// A file with its blocks.
struct Declared {
  std::string path;
  std::vector<MarkedBlock> blocks;
};

// As a person would write it: what says nothing is left out, and what fits stands in one line.
std::string registry_text(std::span<const Declared> files, const Start& start);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_REGISTRY_TEXT_H
