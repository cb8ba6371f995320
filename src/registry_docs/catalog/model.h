// The model: what layouts see of a catalog, member by member as docs/model.md describes it.
#ifndef REGISTRY_DOCS_CATALOG_MODEL_H
#define REGISTRY_DOCS_CATALOG_MODEL_H

#include <cstddef>
#include <optional>
#include <string>

#include "registry_docs/catalog/catalog.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::catalog {

// The root of the model, for one block. The catalog must outlive it.
class Model {
 public:
  struct Block {
    std::string name = {};
    std::size_t heading = 3;                    // the level of its first headings, 1 to 6
    std::optional<std::string> reference = {};  // from its file to the reference's: "" in
                                                // the same file; nothing without one
    const Tool* tool = nullptr;                 // of a block for one tool
  };

  Model(const Catalog& from, Block of);

  // Borrows from this.
  [[nodiscard]] layouts::View view() const;

  // What the views of its members read.
  struct Counts {
    std::string tools, prompts, resources, templates, groups;
  };

  const Catalog* catalog;
  Block block;
  std::string h1, h2, h3;  // the marks of the block's headings, level by level
  Counts counts;
};

}  // namespace registry_docs::catalog

#endif  // REGISTRY_DOCS_CATALOG_MODEL_H
