// Finding what texts say of servers.
#ifndef REGISTRY_CLAIM_SEARCH_H
#define REGISTRY_CLAIM_SEARCH_H

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "registry/claim_facts.h"
#include "registry/claim_text.h"
#include "registry_docs/registry_docs.h"
#include "text/word_finder.h"

namespace registry {

struct FoundClaim {
  std::size_t claim;
  Match match;
};

// All claims of a repository, found in one pass over each text.
class ClaimSearch {
 public:
  explicit ClaimSearch(std::vector<KnownClaim> claims);

  [[nodiscard]] const std::vector<KnownClaim>& claims() const { return claims_; }

  // Those of `which`, in ascending order, as they stand in the text, but none that touches
  // what is left out. In the order of their beginnings; of several matches of one claim with
  // the same beginning, the longest. `left_out` is in order.
  [[nodiscard]] std::vector<FoundClaim> find(std::string_view text,
                                             std::span<const std::size_t> which,
                                             std::span<const Span> left_out) const;

 private:
  std::vector<KnownClaim> claims_;
  std::vector<std::size_t> anchors_;
  text::WordFinder finder_;
};

// What is found as parts, in order: each count as a part that is to become the right one, and
// each name as one that is right or has a fault.
std::vector<registry_docs::Part> parts_of(const ClaimSearch& search,
                                          std::span<const FoundClaim> found,
                                          std::string_view text);

}  // namespace registry

#endif  // REGISTRY_CLAIM_SEARCH_H
