// The layouts that come with the program: the files of builtin/, as they were when it was
// built.
#ifndef REGISTRY_DOCS_LAYOUTS_BUILTIN_H
#define REGISTRY_DOCS_LAYOUTS_BUILTIN_H

#include <span>
#include <string_view>

namespace registry_docs::layouts {

struct BuiltinText {
  std::string_view name;
  std::string_view text;  // a template
};

// Both in the order of their names.
std::span<const BuiltinText> builtin_layouts();
std::span<const BuiltinText> builtin_partials();

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_BUILTIN_H
