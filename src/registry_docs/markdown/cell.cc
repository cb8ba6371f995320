#include "registry_docs/markdown.h"
#include "registry_docs/text.h"
#include "registry_docs/text/white_space.h"

namespace registry_docs::markdown {

std::string cell(std::string_view text) {
  text = strip(text);
  std::string result;
  result.reserve(text.size());
  bool in_white_space = false;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t size = text::white_space_size(text.substr(at));
    if (size == 0) {
      if (text[at] == '|') result += '\\';
      result += text[at];
    } else if (!in_white_space) {
      result += ' ';
    }
    in_white_space = size != 0;
    at += in_white_space ? size : 1;
  }
  return result;
}

}  // namespace registry_docs::markdown
