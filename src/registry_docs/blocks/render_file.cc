#include <algorithm>
#include <unordered_map>

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

ValueError marker_error(const std::vector<blocks::Block>& matches,
                        const GeneratedFile& generated) {
  Names expected;
  for (const auto& [name, renderer] : generated.blocks) expected.emplace_back(name);
  Names found;
  for (const blocks::Block& match : matches) found.push_back(match.name);
  expected = sorted(std::move(expected));
  found = sorted(std::move(found));
  return ValueError(
      generated.path + ": the markers do not match the blocks it holds (missing " +
      bracketed(lacking(expected, found)) + ", unknown " +
      bracketed(lacking(found, expected)) + ", repeated " + bracketed(repeated(found)) + ")");
}

}  // namespace

std::vector<const Renderer*> blocks::renderers_of(const std::vector<Block>& matches,
                                                  const GeneratedFile& generated) {
  std::unordered_map<std::string_view, const Renderer*> not_found_yet;
  not_found_yet.reserve(generated.blocks.size());
  for (const auto& [name, renderer] : generated.blocks) not_found_yet.emplace(name, &renderer);
  std::vector<const Renderer*> renderers;
  renderers.reserve(matches.size());
  for (const Block& match : matches) {
    const auto found = not_found_yet.find(match.name);
    if (found == not_found_yet.end()) throw marker_error(matches, generated);
    renderers.push_back(found->second);
    not_found_yet.erase(found);
  }
  // A name that is declared twice can never be found twice.
  if (renderers.size() != generated.blocks.size()) throw marker_error(matches, generated);
  return renderers;
}

std::optional<std::string> blocks::changed_file(std::string_view text,
                                                const GeneratedFile& generated) {
  const std::vector<Block> matches = scan(text);
  const std::vector<const Renderer*> renderers = renderers_of(matches, generated);
  auto next = renderers.begin();
  return with_bodies(text, matches,
                     [&](const Block&) { return generated.encode((**next++)()); });
}

std::string render_file(std::string_view text, const GeneratedFile& generated) {
  auto changed = blocks::changed_file(text, generated);
  return changed ? *std::move(changed) : std::string(text);
}

}  // namespace registry_docs
