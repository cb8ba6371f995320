#include "registry/layout_blocks.h"

#include <algorithm>
#include <optional>

#include "json/node.h"
#include "registry/catalog.h"
#include "registry/faults.h"
#include "registry_docs/catalog/model.h"

namespace registry {
namespace {

using json::MaybeNode;
using json::Node;
using registry_docs::catalog::Model;
using registry_docs::catalog::Tool;

std::string file_of_reference(const Repository& repository, const Source& source) {
  for (const File& file : repository.files) {
    for (const Block& block : file.blocks) {
      if (block.layout == "reference" && block.server == source.name) return file.path;
    }
  }
  return {};
}

bool shows_tools(const registry_docs::layouts::Template& layout) {
  const auto& names = layout.program().names;
  return std::ranges::any_of(names, [](std::string_view name) {
    return name == "tools" || name == "tool" || name == "groups";
  });
}

// The path of a link from one file of the repository to another, or to the same.
std::optional<std::string> link_between(const std::string& from, const std::string& to) {
  if (to.empty()) return std::nullopt;
  if (from == to) return "";
  namespace fs = std::filesystem;
  return fs::path(to).lexically_relative(fs::path(from).parent_path()).generic_string();
}

}  // namespace

LayoutBlocks::LayoutBlocks(const Repository& repository, const Source& source,
                           std::shared_ptr<json::Document> answer)
    : name_(source.name),
      registry_(repository.registry),
      answer_(std::move(answer)),
      catalog_(catalog_of(source.declared, answer_ ? MaybeNode(Node(*answer_)) : std::nullopt,
                          faults_)),
      reference_(file_of_reference(repository, source)),
      layouts_(repository.root) {}

std::vector<std::string> LayoutBlocks::warnings() const { return warnings_of(faults_); }

// An answer without tools is more often a server that lacks something than one that offers
// none, and would empty the list.
void LayoutBlocks::require_tools(const std::string& path) const {
  if (!answer_ || !catalog_.tools.empty()) return;
  Node(*answer_).at("tools").refuse("at least one tool, since " + path + " lists them",
                                    "none");
}

void LayoutBlocks::add_block(
    const Block& block, const File& file,
    std::vector<std::pair<std::string, registry_docs::Renderer>>& blocks) {
  const auto& layout = layouts_.get(block.layout, file.syntax.language);
  if (shows_tools(layout)) require_tools(file.path);
  Model::Block shown{.name = block.name,
                     .heading = block.heading,
                     .reference = link_between(file.path, reference_)};
  const auto add = [&](const Model::Block& each) {
    blocks.emplace_back(each.name, [this, &layout, each, syntax = file.syntax] {
      return layouts_.render(layout, Model(catalog_, each), syntax);
    });
  };
  if (!shown.name.ends_with('*')) return add(shown);
  const std::string beginning = shown.name.substr(0, shown.name.size() - 1);
  for (const Tool& tool : catalog_.tools) {
    shown.name = beginning + std::string(tool.name);
    shown.tool = &tool;
    add(shown);
  }
}

}  // namespace registry
