#include "registry_docs/repository/encode.h"

#include <string_view>

namespace registry_docs::repository {
namespace {

std::string with_doubled(std::string block, std::string_view doubled) {
  if (block.find_first_of(doubled) == std::string::npos) return block;
  std::string result;
  result.reserve(block.size() + block.size() / 8);
  for (const char c : block) {
    if (doubled.find(c) != std::string_view::npos) result += c;
    result += c;
  }
  return result;
}

}  // namespace

std::string literal_text(std::string block) { return with_doubled(std::move(block), "\\"); }

std::string skill_text(std::string block) { return with_doubled(std::move(block), "\\{}"); }

}  // namespace registry_docs::repository
