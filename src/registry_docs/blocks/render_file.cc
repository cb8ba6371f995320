#include <algorithm>

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

// The renderers of a file, to be found by name.
class Renderers {
 public:
  explicit Renderers(const GeneratedFile& generated) {
    sorted_.reserve(generated.blocks.size());
    for (const auto& block : generated.blocks) sorted_.push_back(&block);
    std::ranges::sort(sorted_, {}, name);
  }

  // `name` must be a declared block's.
  const Renderer& of(std::string_view block) const {
    return (*std::ranges::lower_bound(sorted_, block, {}, name))->second;
  }

 private:
  using Declared = decltype(GeneratedFile::blocks)::value_type;

  static std::string_view name(const Declared* block) { return block->first; }

  std::vector<const Declared*> sorted_;
};

}  // namespace

std::string render_file(std::string_view text, const GeneratedFile& generated) {
  const std::vector<blocks::Block> matches = blocks::scan(text);
  require_declared_blocks(matches, generated);
  const Renderers renderers(generated);
  return blocks::with_bodies(text, matches, [&](const blocks::Block& match) {
    return generated.encode(renderers.of(match.name)());
  });
}

}  // namespace registry_docs
