// What a write would change, for people and for patch programs.
#ifndef GEN_REGISTRY_DOCS_DIFF_UNIFIED_DIFF_H
#define GEN_REGISTRY_DOCS_DIFF_UNIFIED_DIFF_H

#include <string>
#include <string_view>

#include "registry_docs/report.h"

namespace gen_registry_docs::diff {

enum class Colors { none, ansi };

// The unified diff of a stale file, from its `bytes` as they stand to what a write would
// write, with three lines of context. Each hunk is labelled with the blocks that it changes. A
// write makes every line ending a line feed, so that a file with others differs as a whole.
std::string unified_diff(const registry_docs::FileReport& file, std::string_view bytes,
                         Colors colors);

}  // namespace gen_registry_docs::diff

#endif  // GEN_REGISTRY_DOCS_DIFF_UNIFIED_DIFF_H
