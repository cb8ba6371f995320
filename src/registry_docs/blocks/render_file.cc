#include <algorithm>
#include <unordered_map>

#include "registry_docs/blocks/margin.h"
#include "registry_docs/blocks/render.h"
#include "registry_docs/blocks/scan.h"
#include "registry_docs/registry_docs.h"
#include "text/join.h"

namespace registry_docs {
namespace {

// Sorted by code point, which for UTF-8 is byte order.
using Names = std::vector<std::string_view>;

Names sorted(Names names) {
  std::ranges::sort(names);
  return names;
}

// Each name of `names`, which is sorted, once.
Names distinct(Names names) {
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

// The names of `names` that `others` lacks, each once. Both are sorted.
Names lacking(const Names& names, const Names& others) {
  Names left;
  for (const std::string_view name : names) {
    if (!std::ranges::binary_search(others, name)) left.push_back(name);
  }
  return distinct(std::move(left));
}

// The names that stand more than once in `names`, which is sorted, each once.
Names repeated(const Names& names) {
  Names left;
  for (std::size_t i = 1; i < names.size(); ++i) {
    if (names[i] == names[i - 1]) left.push_back(names[i]);
  }
  return distinct(std::move(left));
}

std::string bracketed(const Names& names) {
  return "[" +
         text::join(names, ", ",
                    [](std::string_view name) { return "'" + std::string(name) + "'"; }) +
         "]";
}

}  // namespace

std::string blocks::marker_problem(std::span<const Block> found,
                                   const GeneratedFile& generated) {
  Names expected;
  for (const auto& [name, renderer] : generated.blocks) expected.emplace_back(name);
  Names present;
  for (const Block& block : found) present.push_back(block.name);
  expected = sorted(std::move(expected));
  present = sorted(std::move(present));
  return generated.path + ": the markers do not match the blocks it holds (missing " +
         bracketed(lacking(expected, present)) + ", unknown " +
         bracketed(lacking(present, expected)) + ", repeated " + bracketed(repeated(present)) +
         ")";
}

std::optional<blocks::Renderers> blocks::renderers_of(std::span<const Block> found,
                                                      const GeneratedFile& generated) {
  std::unordered_map<std::string_view, const Renderer*> not_found_yet;
  not_found_yet.reserve(generated.blocks.size());
  for (const auto& [name, renderer] : generated.blocks) not_found_yet.emplace(name, &renderer);
  Renderers renderers;
  renderers.reserve(found.size());
  for (const Block& block : found) {
    const auto next = not_found_yet.find(block.name);
    if (next == not_found_yet.end()) return std::nullopt;
    renderers.push_back(next->second);
    not_found_yet.erase(next);
  }
  // A name that is declared twice can never be found twice.
  if (renderers.size() != generated.blocks.size()) return std::nullopt;
  return renderers;
}

std::string render_file(std::string_view text, const GeneratedFile& generated) {
  const std::vector<blocks::Block> found = blocks::scan(text, generated.syntax);
  const auto renderers = blocks::renderers_of(found, generated);
  if (!renderers) throw ValueError(blocks::marker_problem(found, generated));
  auto next = renderers->begin();
  auto changed = blocks::with_bodies(text, found, [&](const blocks::Block& block) {
    return blocks::new_body(text, block, generated.encode((**next++)()), generated.syntax);
  });
  return changed ? *std::move(changed) : std::string(text);
}

}  // namespace registry_docs
