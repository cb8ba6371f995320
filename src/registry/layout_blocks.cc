#include "registry/layout_blocks.h"

#include <optional>

#include "json/node.h"
#include "registry/catalog.h"
#include "registry_docs/catalog/model.h"

namespace registry {
namespace {

using json::MaybeNode;
using json::Node;
using registry_docs::catalog::Model;
using registry_docs::catalog::Tool;

std::string file_of_reference(const std::vector<File>& files) {
  for (const File& file : files) {
    for (const Block& block : file.blocks) {
      if (block.layout == "reference") return file.path;
    }
  }
  return {};
}

// The path of a link from one file of the repository to another, or to the same.
std::optional<std::string> link_between(const std::string& from, const std::string& to) {
  if (to.empty()) return std::nullopt;
  if (from == to) return "";
  namespace fs = std::filesystem;
  return fs::path(to).lexically_relative(fs::path(from).parent_path()).generic_string();
}

}  // namespace

LayoutBlocks::LayoutBlocks(std::filesystem::path root, Documents documents,
                           const std::vector<File>& files)
    : documents_(std::move(documents)),
      catalog_(catalog_of(
          Node(*documents_.registry),
          documents_.answer ? MaybeNode(Node(*documents_.answer)) : std::nullopt, faults_)),
      reference_(file_of_reference(files)),
      layouts_(std::move(root)) {}

std::vector<std::string> LayoutBlocks::warnings() const {
  std::vector<std::string> lines;
  for (const json_schema::Fault& fault : faults_) {
    lines.push_back(fault.at.refusal(fault.expected, fault.found));
  }
  return lines;
}

void LayoutBlocks::add_block(
    const Block& block, const std::string& path,
    std::vector<std::pair<std::string, registry_docs::Renderer>>& blocks) {
  const auto& layout = layouts_.get(block.layout);
  Model::Block shown{.name = block.name,
                     .heading = block.heading,
                     .reference = link_between(path, reference_)};
  const auto add = [&](const Model::Block& each) {
    blocks.emplace_back(each.name, [this, &layout, each] {
      return layouts_.render(layout, Model(catalog_, each));
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
