#include "gen_registry_docs/shell_word.h"

#include <algorithm>

#include "text/ascii.h"

namespace gen_registry_docs {
namespace {

bool is_plain(char c) {
  constexpr std::string_view signs = "_@%+=:,./-";
  return text::is_letter_or_digit(c) || signs.find(c) != std::string_view::npos;
}

}  // namespace

std::string shell_word(std::string_view text) {
  if (!text.empty() && std::ranges::all_of(text, is_plain)) return std::string(text);
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? "'\\''" : std::string(1, c);
  return word + "'";
}

}  // namespace gen_registry_docs
