#include "registry_docs/repository/encode.h"

#include <string_view>
#include <utility>

namespace registry_docs::repository {
namespace {

// The text with every `character` in it written twice.
std::string doubled(std::string text, char character) {
  std::size_t at = text.find(character);
  if (at == std::string::npos) return text;
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  std::string_view rest = text;
  for (; at != std::string_view::npos; at = rest.find(character)) {
    result += rest.substr(0, at + 1);
    result += character;
    rest.remove_prefix(at + 1);
  }
  return result += rest;
}

}  // namespace

std::string literal_text(std::string block) { return doubled(std::move(block), '\\'); }

std::string skill_text(std::string block) {
  return doubled(doubled(literal_text(std::move(block)), '{'), '}');
}

}  // namespace registry_docs::repository
