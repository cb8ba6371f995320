// Words of a shell's command line.
#ifndef GEN_REGISTRY_DOCS_SHELL_WORD_H
#define GEN_REGISTRY_DOCS_SHELL_WORD_H

#include <string>
#include <string_view>

namespace gen_registry_docs {

// The text as one word, between quotes where a shell would read it as more or less.
std::string shell_word(std::string_view text);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_SHELL_WORD_H
