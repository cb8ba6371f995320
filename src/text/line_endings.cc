#include "text/line_endings.h"

namespace text {

std::string with_line_feeds(std::string text) {
  const std::size_t first = text.find('\r');
  if (first == std::string::npos) return text;
  std::size_t size = first;
  for (std::size_t at = first; at < text.size(); ++at) {
    const bool is_return = text[at] == '\r';
    text[size++] = is_return ? '\n' : text[at];
    if (is_return && at + 1 < text.size() && text[at + 1] == '\n') ++at;
  }
  text.resize(size);
  return text;
}

}  // namespace text
