// What servers offer, as claims count and name it.
#ifndef REGISTRY_CLAIM_FACTS_H
#define REGISTRY_CLAIM_FACTS_H

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "registry/claims.h"
#include "registry_docs/catalog/catalog.h"

namespace registry {

using Names = std::vector<std::string_view>;  // in order, each once

// What is true of one place of a claim: the count, or the names of which one may stand there.
struct Truth {
  std::size_t count = 0;
  std::shared_ptr<const Names> names = {};
};

// A claim and what is true of each of its places.
struct KnownClaim {
  ClaimText text;
  std::vector<Truth> truths;
  std::vector<std::string> allowed = {};
};

// Of servers of which something is known, under their names. Borrows the catalogs.
class ClaimFacts {
 public:
  using Catalogs = std::vector<std::pair<std::string, const registry_docs::catalog::Catalog*>>;
  explicit ClaimFacts(Catalogs catalogs) : catalogs_(std::move(catalogs)) {}

  // Whether enough is known for the claim; `servers` is how many there are.
  [[nodiscard]] bool are_known(const Claim& claim, std::size_t servers) const;

  // Refuses a claim of a group that there is not. The names are made once for all claims.
  KnownClaim known(const Claim& claim);

 private:
  Truth truth_of(const Claim& claim, const Slot& slot);
  std::size_t count(const Claim& claim, const Slot& slot) const;
  std::size_t count_of_group(const Claim& claim, const std::string& group) const;
  template <typename Visit>
  void for_each_catalog(const std::string& server, Visit visit) const;

  Catalogs catalogs_;
  std::map<std::pair<std::string, Fact>, std::shared_ptr<const Names>> names_ = {};
};

}  // namespace registry

#endif  // REGISTRY_CLAIM_FACTS_H
