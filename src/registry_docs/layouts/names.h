// Names, each kept once.
#ifndef REGISTRY_DOCS_LAYOUTS_NAMES_H
#define REGISTRY_DOCS_LAYOUTS_NAMES_H

#include <string_view>
#include <unordered_map>
#include <vector>

#include "registry_docs/layouts/program.h"

namespace registry_docs::layouts {

// Numbers the distinct names of a list as they are met.
class Names {
 public:
  // Adds to `names`, which must be empty.
  explicit Names(std::vector<std::string_view>& names) : names_(names) {}

  NameId id_of(std::string_view name) {
    const auto [at, is_new] = ids_.try_emplace(name, static_cast<NameId>(names_.size()));
    if (is_new) names_.push_back(name);
    return at->second;
  }

 private:
  std::vector<std::string_view>& names_;
  std::unordered_map<std::string_view, NameId> ids_;
};

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_NAMES_H
