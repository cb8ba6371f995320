// What a file that holds generated blocks is written in.
#ifndef REGISTRY_SYNTAX_H
#define REGISTRY_SYNTAX_H

#include <string_view>

#include "json/node.h"
#include "registry_docs/syntax.h"

namespace registry {

enum class Language {
  text,  // its name says nothing, and nothing is declared
  markdown,
  mdx,
  html,
  source,  // its comments are declared
};

struct Syntax {
  Language language = Language::text;
  registry_docs::Syntax file = {};
};

// By the file's name, and by its comments where they are declared: the beginning of one and
// its end, which is empty for one that ends with its line. Refuses comments that are none.
Syntax syntax_of(std::string_view path, const json::MaybeNode& comment);

}  // namespace registry

#endif  // REGISTRY_SYNTAX_H
