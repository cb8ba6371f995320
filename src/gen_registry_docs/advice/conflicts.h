// Merge conflicts that a write cannot settle.
#ifndef GEN_REGISTRY_DOCS_ADVICE_CONFLICTS_H
#define GEN_REGISTRY_DOCS_ADVICE_CONFLICTS_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs::advice {

// The lines of a merge conflict's own first and last marks, counted from 1.
struct Conflict {
  std::size_t line;
  std::size_t last_line;
};

// The conflicts of a text that hold a marker, apart from those that lie within one of its
// blocks: writing the block anew settles them. `blocks` are in the order of the text.
std::vector<Conflict> conflicts_across_markers(
    std::string_view text, const std::vector<registry_docs::BlockReport>& blocks,
    const registry_docs::Comment& comment = {});

}  // namespace gen_registry_docs::advice

#endif  // GEN_REGISTRY_DOCS_ADVICE_CONFLICTS_H
