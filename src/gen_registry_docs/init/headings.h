// The headings of a Markdown file.
#ifndef GEN_REGISTRY_DOCS_INIT_HEADINGS_H
#define GEN_REGISTRY_DOCS_INIT_HEADINGS_H

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "gen_registry_docs/init/live_lines.h"

namespace gen_registry_docs::init {

struct Heading {
  std::string_view text;  // as it is spelled
  std::size_t level;
  std::size_t line;  // its last one, counted from 1
  std::size_t end;   // a byte offset, behind that line
};

// Those that begin with "#", and those with a line of "=" or "-" below them.
std::vector<Heading> headings_of(std::span<const LiveLine> lines);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_HEADINGS_H
