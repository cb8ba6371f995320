// Putting new bodies into the blocks of a text.
#ifndef REGISTRY_DOCS_BLOCKS_RENDER_H
#define REGISTRY_DOCS_BLOCKS_RENDER_H

#include <span>
#include <string>
#include <string_view>

#include "registry_docs/blocks/scan.h"

namespace registry_docs::blocks {

// `text` with the body of each of its blocks, which `scan` found in it, replaced by
// `body(block)` and one line feed. Everything else is copied as it is.
template <typename Body>
std::string with_bodies(std::string_view text, std::span<const Block> found, Body body) {
  std::string result;
  result.reserve(text.size());
  const char* copied = text.data();
  for (const Block& block : found) {
    result.append(copied, block.body.data());
    const std::string new_body = body(block);
    copied = block.close.data();
    const auto behind = static_cast<std::size_t>(text.data() + text.size() - copied);
    result.reserve(result.size() + new_body.size() + 1 + behind);
    result += new_body;
    result += '\n';
  }
  result.append(copied, text.data() + text.size());
  return result;
}

}  // namespace registry_docs::blocks

#endif  // REGISTRY_DOCS_BLOCKS_RENDER_H
