// Where a block is put into a file.
#ifndef GEN_REGISTRY_DOCS_INIT_PLACE_H
#define GEN_REGISTRY_DOCS_INIT_PLACE_H

#include <cstddef>
#include <string>
#include <string_view>

#include "gen_registry_docs/init/headings.h"

namespace gen_registry_docs::init {

struct Place {
  std::size_t begin;  // byte offsets of what makes way, and stands in `before` again
  std::size_t end;
  std::string before = {};  // the block
  std::string after = {};   // it
  std::size_t level = 2;    // of headings that stand there first
};

// At the end of a text, behind a blank line.
Place place_at_end(std::string_view text);

// Behind a heading of the text and the blank line below it.
Place place_below(const Heading& heading, std::string_view text);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_PLACE_H
