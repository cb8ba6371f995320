// The generated blocks of a text.
#ifndef REGISTRY_DOCS_BLOCKS_SCAN_H
#define REGISTRY_DOCS_BLOCKS_SCAN_H

#include <string_view>
#include <utility>
#include <vector>

#include "registry_docs/syntax.h"

namespace registry_docs::blocks {

// One block. The parts borrow from the text; `open`, `body` and `close` lie back to back
// in it.
struct Block {
  std::string_view open;  // the opening marker and the line feed that must follow it
  std::string_view name;
  std::string_view body;  // up to the first closing marker of that name
  std::string_view close;
};

// The blocks from left to right; they never overlap. An opening marker that no closing
// marker of its name follows is plain text, as is anything inside a block. Never fails.
std::vector<Block> scan(std::string_view text);

// The same by the rules of a syntax. In Markdown an opening marker in fenced code is plain
// text, too; within a block fences count for nothing, so that no broken one hides its end.
std::vector<Block> scan(std::string_view text, const Syntax& syntax);

// Name and body of each block, in the order in which the names first appear. A name that
// several blocks have stands once, with the body of the last.
std::vector<std::pair<std::string_view, std::string_view>> blocks(std::string_view text,
                                                                  const Syntax& syntax = {});

}  // namespace registry_docs::blocks

#endif  // REGISTRY_DOCS_BLOCKS_SCAN_H
