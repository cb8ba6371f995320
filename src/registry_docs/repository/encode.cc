#include "registry_docs/repository/encode.h"

#include <string_view>

namespace registry_docs::repository {
namespace {

// The text with every `character` in it written twice.
std::string doubled(std::string_view text, char character) {
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  for (std::size_t at = text.find(character); at != std::string_view::npos;
       at = text.find(character)) {
    result += text.substr(0, at + 1);
    result += character;
    text.remove_prefix(at + 1);
  }
  return result += text;
}

}  // namespace

std::string literal_text(const std::string& block) { return doubled(block, '\\'); }

std::string skill_text(const std::string& block) {
  return doubled(doubled(literal_text(block), '{'), '}');
}

}  // namespace registry_docs::repository
