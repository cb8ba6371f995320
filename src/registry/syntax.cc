#include "registry/syntax.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "registry_docs/text.h"
#include "text/ascii.h"

namespace registry {
namespace {

constexpr std::array<std::pair<std::string_view, Language>, 5> endings = {
    {{".md", Language::markdown},
     {".markdown", Language::markdown},
     {".mdx", Language::mdx},
     {".html", Language::html},
     {".htm", Language::html}}};

Language language_of(std::string_view path) {
  const auto* const found = std::ranges::find_if(
      endings, [&](const auto& ending) { return path.ends_with(ending.first); });
  return found == endings.end() ? Language::text : found->second;
}

bool is_graphic(char c) { return c > ' ' && c <= '~'; }

std::string word_of(const json::Node& declared, bool may_be_empty) {
  constexpr std::size_t longest = 20;
  const std::string_view word = declared.string();
  const bool is_word =
      !word.empty() && word.size() <= longest && is_graphic(word.front()) &&
      is_graphic(word.back()) &&
      std::ranges::all_of(word, [](char c) { return is_graphic(c) || c == ' '; });
  if (!is_word && !(word.empty() && may_be_empty)) {
    declared.refuse(std::string(may_be_empty ? "nothing or " : "") +
                        "1 to 20 characters of ASCII without blanks at the ends",
                    registry_docs::in_quotes(registry_docs::visible(word)));
  }
  return std::string(word);
}

registry_docs::Comment comment_of(const json::Node& declared) {
  std::vector<std::string> words;
  declared.for_each_element(
      [&](const json::Node& word) { words.push_back(word_of(word, words.size() == 1)); });
  if (words.size() != 2) {
    declared.refuse(R"(the beginning of a comment and its end, as in ["#", ""])",
                    std::to_string(words.size()) + (words.size() == 1 ? " text" : " texts"));
  }
  return {.open = std::move(words[0]), .close = std::move(words[1])};
}

}  // namespace

Syntax syntax_of(std::string_view path, const json::MaybeNode& comment) {
  Syntax syntax{.language = language_of(path)};
  syntax.file.keeps_form = true;
  syntax.file.is_markdown =
      syntax.language == Language::markdown || syntax.language == Language::mdx;
  if (syntax.language == Language::mdx) syntax.file.comment = {.open = "{/*", .close = "*/}"};
  if (!comment) return syntax;
  syntax.file.comment = comment_of(*comment);
  if (syntax.language == Language::text) syntax.language = Language::source;
  return syntax;
}

}  // namespace registry
