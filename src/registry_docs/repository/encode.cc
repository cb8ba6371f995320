#include "registry_docs/repository/encode.h"

#include <utility>

namespace registry_docs::repository {
namespace {

// The text with each character doubled for which `is_doubled` holds.
template <typename Predicate>
std::string with_doubled(std::string block, Predicate is_doubled) {
  std::string result;
  std::size_t copied = 0;
  for (std::size_t at = 0; at < block.size(); ++at) {
    if (!is_doubled(block[at])) continue;
    result.append(block, copied, at + 1 - copied);
    copied = at;
  }
  return copied == 0 && result.empty() ? block : result.append(block, copied);
}

}  // namespace

std::string literal_text(std::string block) {
  return with_doubled(std::move(block), [](char c) { return c == '\\'; });
}

std::string skill_text(std::string block) {
  return with_doubled(std::move(block),
                      [](char c) { return c == '\\' || c == '{' || c == '}'; });
}

}  // namespace registry_docs::repository
