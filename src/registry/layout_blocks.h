// The blocks that layouts make of what a server offers.
#ifndef REGISTRY_LAYOUT_BLOCKS_H
#define REGISTRY_LAYOUT_BLOCKS_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "json_schema/fault.h"
#include "registry/files.h"
#include "registry/layouts.h"
#include "registry/repository.h"
#include "registry_docs/catalog/catalog.h"
#include "registry_docs/registry_docs.h"

namespace registry {

class LayoutBlocks {
 public:
  // Makes the catalog of the answer, or without one of what the source declares. Keeps both
  // documents, and borrows neither the repository nor the source. Throws InputError.
  LayoutBlocks(const Repository& repository, const Source& source,
               std::shared_ptr<json::Document> answer);
  LayoutBlocks(const LayoutBlocks&) = delete;
  LayoutBlocks& operator=(const LayoutBlocks&) = delete;
  ~LayoutBlocks() = default;

  // What of the server's schemas could not be read, a line each.
  [[nodiscard]] std::vector<std::string> warnings() const;

  // The source's name.
  [[nodiscard]] const std::string& name() const { return name_; }

  [[nodiscard]] const registry_docs::catalog::Catalog& catalog() const { return catalog_; }

  // For a list of tools in the file at `path`. Throws InputError where the server answered
  // none.
  void require_tools(const std::string& path) const;

  // Adds the block of the file, or the blocks that its name stands for. Their
  // renderers borrow this. Throws InputError for a template that is none, and for one of tools
  // where the server answered none; FileError for a template that cannot be read.
  void add_block(const Block& block, const File& file,
                 std::vector<std::pair<std::string, registry_docs::Renderer>>& blocks);

 private:
  std::string name_;
  std::shared_ptr<json::Document> registry_;
  std::shared_ptr<json::Document> answer_;
  std::vector<json_schema::Fault> faults_;
  registry_docs::catalog::Catalog catalog_;
  std::string reference_;  // the file of the reference; empty without one
  Layouts layouts_;
};

}  // namespace registry

#endif  // REGISTRY_LAYOUT_BLOCKS_H
