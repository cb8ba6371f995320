// Markers that begin and end no block.
#ifndef GEN_REGISTRY_DOCS_LOOSE_MARKERS_H
#define GEN_REGISTRY_DOCS_LOOSE_MARKERS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs {

// A marker, or what is almost one.
struct LooseMarker {
  std::string_view name;  // borrows from the report
  std::size_t line;       // counted from 1
  std::string fault;      // what is wrong with it, and how it is mended
};

// The markers that stand outside all blocks, those of missing blocks that another block holds,
// and comments that are almost markers of missing blocks.
std::vector<LooseMarker> loose_markers(const registry_docs::FileReport& file);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_LOOSE_MARKERS_H
