// What the lines of a block stand behind.
#ifndef REGISTRY_DOCS_BLOCKS_MARGIN_H
#define REGISTRY_DOCS_BLOCKS_MARGIN_H

#include <optional>
#include <string>
#include <string_view>

#include "registry_docs/blocks/scan.h"
#include "registry_docs/syntax.h"

namespace registry_docs::blocks {

// The body that holds the text in its file, up to the closing marker, which stands behind the
// margin as well; nothing when it stands there already. `whole` is the text that the block was
// found in.
std::optional<std::string> new_body(std::string_view whole, const Block& block,
                                    std::string text, const Syntax& syntax = {});

}  // namespace registry_docs::blocks

#endif  // REGISTRY_DOCS_BLOCKS_MARGIN_H
