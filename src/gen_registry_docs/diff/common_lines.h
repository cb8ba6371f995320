// What two sequences have in common.
#ifndef GEN_REGISTRY_DOCS_DIFF_COMMON_LINES_H
#define GEN_REGISTRY_DOCS_DIFF_COMMON_LINES_H

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace gen_registry_docs::diff {

// A longest common subsequence, as pairs of places, both increasing. Finds it in
// (p + 1) * (p + d + 1) steps and as much memory, where p numbers of the shorter sequence have
// no partner and the other one is longer by d (Wu, Manber, Myers and Miller, 1990).
std::vector<std::pair<std::size_t, std::size_t>> common_places(std::span<const int> left,
                                                               std::span<const int> right);

}  // namespace gen_registry_docs::diff

#endif  // GEN_REGISTRY_DOCS_DIFF_COMMON_LINES_H
