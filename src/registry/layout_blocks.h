// The blocks that layouts make of what a server offers.
#ifndef REGISTRY_LAYOUT_BLOCKS_H
#define REGISTRY_LAYOUT_BLOCKS_H

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "json_schema/fault.h"
#include "registry/documents.h"
#include "registry/files.h"
#include "registry/layouts.h"
#include "registry_docs/catalog/catalog.h"
#include "registry_docs/registry_docs.h"

namespace registry {

class LayoutBlocks {
 public:
  // Makes the catalog of the documents, which it keeps. `files` says where the reference
  // stands that other blocks lead to. Throws InputError.
  LayoutBlocks(std::filesystem::path root, Documents documents,
               const std::vector<File>& files);
  LayoutBlocks(const LayoutBlocks&) = delete;
  LayoutBlocks& operator=(const LayoutBlocks&) = delete;
  ~LayoutBlocks() = default;

  // What of the server's schemas could not be read, a line each.
  [[nodiscard]] std::vector<std::string> warnings() const;

  [[nodiscard]] const registry_docs::catalog::Catalog& catalog() const { return catalog_; }

  // Adds the block of the file at `path`, or the blocks that its name stands for. Their
  // renderers borrow this. Throws InputError for a template that is none, FileError for one
  // that cannot be read.
  void add_block(const Block& block, const std::string& path,
                 std::vector<std::pair<std::string, registry_docs::Renderer>>& blocks);

 private:
  Documents documents_;
  std::vector<json_schema::Fault> faults_;
  registry_docs::catalog::Catalog catalog_;
  std::string reference_;  // the file of the reference; empty without one
  Layouts layouts_;
};

}  // namespace registry

#endif  // REGISTRY_LAYOUT_BLOCKS_H
