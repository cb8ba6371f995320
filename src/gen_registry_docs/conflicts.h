// Merge conflicts that a write cannot settle.
#ifndef GEN_REGISTRY_DOCS_CONFLICTS_H
#define GEN_REGISTRY_DOCS_CONFLICTS_H

#include <cstddef>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs {

// The lines of a merge conflict's own first and last marks, counted from 1.
struct Conflict {
  std::size_t line;
  std::size_t last_line;
};

// The conflicts of the file's text that hold a marker which they share with no block around
// them. One that lies within a block is settled by writing the block anew.
std::vector<Conflict> conflicts_across_markers(const registry_docs::FileReport& file);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_CONFLICTS_H
