#include "registry/claim_facts.h"

#include <algorithm>

#include "registry_docs/text.h"
#include "text/join.h"

namespace registry {

using registry_docs::catalog::Catalog;
using registry_docs::catalog::Group;

namespace {

template <typename Entries>
void add_names(Names& names, const Entries& entries) {
  for (const auto& each : entries) names.push_back(each.name);
}

std::size_t count_in(const Catalog& catalog, Fact fact) {
  switch (fact) {
    case Fact::prompts:
      return catalog.prompts.size();
    case Fact::resources:
      return catalog.resources.size();
    case Fact::templates:
      return catalog.templates.size();
    default:
      return catalog.tools.size();
  }
}

}  // namespace

template <typename Visit>
void ClaimFacts::for_each_catalog(const std::string& server, Visit visit) const {
  for (const auto& [name, catalog] : catalogs_) {
    if (server.empty() || name == server) visit(*catalog);
  }
}

bool ClaimFacts::are_known(const Claim& claim, std::size_t servers) const {
  std::size_t known = 0;
  for_each_catalog(claim.server, [&known](const Catalog&) { ++known; });
  return known == (claim.server.empty() ? servers : 1);
}

KnownClaim ClaimFacts::known(const Claim& claim) {
  KnownClaim known{.text = claim.text, .truths = {}, .allowed = claim.allowed};
  for (const Slot& slot : claim.text.slots) known.truths.push_back(truth_of(claim, slot));
  return known;
}

Truth ClaimFacts::truth_of(const Claim& claim, const Slot& slot) {
  if (!is_name(slot)) return {.count = count(claim, slot)};
  auto& names = names_[{claim.server, slot.fact}];
  if (names == nullptr) {
    Names made;
    for_each_catalog(claim.server, [&](const Catalog& catalog) {
      if (slot.fact == Fact::tool) add_names(made, catalog.tools);
      if (slot.fact == Fact::prompt) add_names(made, catalog.prompts);
      if (slot.fact == Fact::resource) add_names(made, catalog.resources);
    });
    std::ranges::sort(made);
    made.erase(std::unique(made.begin(), made.end()), made.end());
    names = std::make_shared<const Names>(std::move(made));
  }
  return {.names = names};
}

std::size_t ClaimFacts::count(const Claim& claim, const Slot& slot) const {
  if (!slot.group.empty()) return count_of_group(claim, slot.group);
  std::size_t all = 0;
  for_each_catalog(claim.server,
                   [&](const Catalog& catalog) { all += count_in(catalog, slot.fact); });
  return all;
}

std::size_t ClaimFacts::count_of_group(const Claim& claim, const std::string& group) const {
  std::size_t all = 0;
  bool is_there = false;
  Names groups;
  for_each_catalog(claim.server, [&](const Catalog& catalog) {
    for (const Group& each : catalog.groups) {
      groups.push_back(each.name);
      if (each.name != group) continue;
      is_there = true;
      all += each.tools.size();
    }
  });
  if (is_there) return all;
  claim.declared.at("text").refuse(groups.empty()
                                       ? "no group, since the tools have none"
                                       : "one of the groups " + text::join(groups, ", "),
                                   registry_docs::in_quotes(registry_docs::visible(group)));
}

}  // namespace registry
