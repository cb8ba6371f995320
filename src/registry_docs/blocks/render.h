// Putting new bodies into the blocks of a text.
#ifndef REGISTRY_DOCS_BLOCKS_RENDER_H
#define REGISTRY_DOCS_BLOCKS_RENDER_H

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/blocks/scan.h"
#include "registry_docs/registry_docs.h"

namespace registry_docs::blocks {

// `text` with the body of each of its blocks, which `scan` found in it, replaced by
// `body(block)`, a `new_body`; everything else is copied as it is. Nothing, and nothing is
// copied, when these bodies stand there already.
template <typename Body>
std::optional<std::string> with_bodies(std::string_view text, std::span<const Block> found,
                                       Body body) {
  std::optional<std::string> result;
  const char* copied = text.data();
  for (const Block& block : found) {
    const std::optional<std::string> new_body = body(block);
    if (!new_body) continue;
    if (!result) result.emplace().reserve(text.size());
    result->append(copied, block.body.data());
    copied = block.close.data();
    const auto behind = static_cast<std::size_t>(text.data() + text.size() - copied);
    result->reserve(result->size() + new_body->size() + behind);
    *result += *new_body;
  }
  if (result) result->append(copied, text.data() + text.size());
  return result;
}

// The renderer of each block that `scan` found in a text, in their order; nothing unless they
// are exactly the declared ones, each once.
using Renderers = std::vector<const Renderer*>;
std::optional<Renderers> renderers_of(std::span<const Block> found,
                                      const GeneratedFile& generated);

// What is wrong with the blocks of a text that are not exactly the declared ones.
std::string marker_problem(std::span<const Block> found, const GeneratedFile& generated);

}  // namespace registry_docs::blocks

#endif  // REGISTRY_DOCS_BLOCKS_RENDER_H
