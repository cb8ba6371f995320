// What templates may name besides the members of what they show.
#ifndef REGISTRY_DOCS_LAYOUTS_VOCABULARY_H
#define REGISTRY_DOCS_LAYOUTS_VOCABULARY_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace registry_docs::layouts {

// Appends to `to` what it makes of a text, which is shown as it is from there on. `indent` is
// for every line but the first: as many blanks, 200 at most, as are before what is written in
// the tag's line of the output, with the marks of lists.
using AppendText = void (*)(std::string& to, std::string_view text, std::string_view indent);

// For {{path | name}}.
struct TextFilter {
  std::string_view name;
  AppendText append;
  // Only then is it given an indent, and not for one line that begins with a letter.
  bool is_of_lines = false;
};

// Changes what stands in `text` from `begin` on, and nothing before it.
using Wrap = void (*)(std::string& text, std::size_t begin);

// For {{#@name}}...{{/@name}}. Its name begins with "@", and is no loop variable's.
struct Wrapper {
  std::string_view name;
  Wrap wrap;
};

// What stands here goes before what every template has of the same name.
struct Vocabulary {
  std::span<const TextFilter> filters = {};
  std::span<const Wrapper> wrappers = {};
};

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_VOCABULARY_H
