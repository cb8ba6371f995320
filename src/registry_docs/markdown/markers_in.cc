#include "registry_docs/markdown/markers_in.h"

#include <cstddef>

#include "text/white_space.h"

namespace registry_docs::markdown {
namespace {

void skip_white_space(std::string_view& text) {
  while (const std::size_t size = text::white_space_size(text)) text.remove_prefix(size);
}

}  // namespace

bool has_marker(std::string_view text, std::string_view comment) {
  std::size_t at = text.find(comment);
  for (; at != std::string_view::npos; at = text.find(comment, at + 1)) {
    std::string_view inside = text.substr(at + comment.size());
    skip_white_space(inside);
    if (inside.starts_with('/')) inside.remove_prefix(1);
    skip_white_space(inside);
    if (inside.starts_with("registry")) return true;
  }
  return false;
}

}  // namespace registry_docs::markdown
