// Markers that begin and end no block.
#ifndef GEN_REGISTRY_DOCS_ADVICE_LOOSE_MARKERS_H
#define GEN_REGISTRY_DOCS_ADVICE_LOOSE_MARKERS_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/report.h"
#include "text/nearest.h"

namespace gen_registry_docs::advice {

// A marker of a missing block, or what shall surely be one.
struct LooseMarker {
  std::string_view name;     // of that block; borrows from the report
  std::size_t line;          // counted from 1
  std::string fault;         // what is wrong with it, and how it is fixed
  bool is_misspelt = false;  // it is no marker of that name yet
};

// The markers of missing blocks that make no block, wherever they stand, and the markers and
// comments that are almost theirs. A marker that is misspelt takes its name from `guesses`.
// The faults that are gone once a misspelt marker is fixed are left out.
std::vector<LooseMarker> loose_markers(const registry_docs::FileReport& file,
                                       text::Guesses& guesses);

}  // namespace gen_registry_docs::advice

#endif  // GEN_REGISTRY_DOCS_ADVICE_LOOSE_MARKERS_H
