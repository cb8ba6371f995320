// The lines of a file that people write for its readers.
#ifndef GEN_REGISTRY_DOCS_INIT_LIVE_LINES_H
#define GEN_REGISTRY_DOCS_INIT_LIVE_LINES_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "registry_docs/syntax.h"

namespace gen_registry_docs::init {

struct LiveLine {
  std::string_view text;  // without its line feed
  std::size_t begin;      // a byte offset
  std::size_t end;        // behind its line feed
  std::size_t number;     // counted from 1
};

// Those that stand neither in a generated block nor, in Markdown, in fenced code, in a comment
// of several lines or in the front matter. They borrow from `text`.
std::vector<LiveLine> live_lines(std::string_view text, const registry_docs::Syntax& syntax);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_LIVE_LINES_H
