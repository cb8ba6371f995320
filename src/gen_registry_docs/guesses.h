// Names that may have been meant, each for one other name.
#ifndef GEN_REGISTRY_DOCS_GUESSES_H
#define GEN_REGISTRY_DOCS_GUESSES_H

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "gen_registry_docs/nearest.h"

namespace gen_registry_docs {

class Guesses {
 public:
  // The names borrow from what must outlive this.
  explicit Guesses(std::vector<std::string_view> names) : names_(std::move(names)) {}

  // The nearest of the names that were not meant before; empty when none is near.
  std::string_view take(std::string_view name) {
    if (left_ == 0) return {};
    --left_;
    const std::string_view meant = nearest(name, names_);
    std::erase(names_, meant);
    return meant;
  }

 private:
  std::vector<std::string_view> names_;
  std::size_t left_ = 20;  // each look goes through all names
};

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_GUESSES_H
