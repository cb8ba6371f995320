#include <algorithm>
#include <unordered_map>

#include "registry_docs/blocks/render.h"
#include "registry_docs/blocks/scan.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/text/join.h"

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

ValueError marker_error(const std::string& path, const Names& expected, const Names& found) {
  return ValueError(path + ": the markers do not match the blocks it holds (missing " +
                    bracketed(lacking(expected, found)) + ", unknown " +
                    bracketed(lacking(found, expected)) + ", repeated " +
                    bracketed(repeated(found)) + ")");
}

void require_declared_blocks(const std::vector<blocks::Block>& matches,
                             const GeneratedFile& generated) {
  Names expected;
  expected.reserve(generated.blocks.size());
  for (const auto& [name, renderer] : generated.blocks) expected.emplace_back(name);
  Names found;
  found.reserve(matches.size());
  for (const blocks::Block& match : matches) found.push_back(match.name);
  expected = sorted(std::move(expected));
  found = sorted(std::move(found));
  if (found != expected || std::ranges::adjacent_find(found) != found.end()) {
    throw marker_error(generated.path, expected, found);
  }
}

}  // namespace

std::string render_file(std::string_view text, const GeneratedFile& generated) {
  const std::vector<blocks::Block> matches = blocks::scan(text);
  require_declared_blocks(matches, generated);
  std::unordered_map<std::string_view, const Renderer*> renderers;
  for (const auto& [name, renderer] : generated.blocks) renderers.emplace(name, &renderer);
  return blocks::with_bodies(text, matches, [&](const blocks::Block& match) {
    return generated.encode((*renderers.at(match.name))());
  });
}

}  // namespace registry_docs
