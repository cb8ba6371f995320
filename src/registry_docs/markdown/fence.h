// Fenced blocks.
#ifndef REGISTRY_DOCS_MARKDOWN_FENCE_H
#define REGISTRY_DOCS_MARKDOWN_FENCE_H

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "registry_docs/markdown/line.h"

namespace registry_docs::markdown {

constexpr std::size_t shortest_fence = 3;

// Whether a fence's info string is the name of a language, or nothing.
bool is_language(std::string_view info);

// The line that opens a fenced block.
struct Fence {
  std::string_view marks;  // three or more backquotes or tildes
  std::string_view info;
  std::size_t indent = 0;  // in columns
};

// The fence that the line is, however far it is indented.
std::optional<Fence> fence_of(const Line& line);

// Whether the line closes the block.
bool closes(const Line& line, const Fence& fence);

// Appends the block of these lines, which begin behind the column `indent`, each behind
// `before` but for the first. What the fence says beside a language stands on the first line.
// HTML stands for a block in which a block's marker would be found.
void append_fenced(std::string& to, const Fence& fence, std::span<const Line> lines,
                   std::string_view before);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_FENCE_H
