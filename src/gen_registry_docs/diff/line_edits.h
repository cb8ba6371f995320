// What differs between two texts, line by line.
#ifndef GEN_REGISTRY_DOCS_DIFF_LINE_EDITS_H
#define GEN_REGISTRY_DOCS_DIFF_LINE_EDITS_H

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace gen_registry_docs::diff {

// The lines of a text, each with its line feed; the last one may lack it. They borrow.
std::vector<std::string_view> lines_of(std::string_view text);

// Old lines that make way for new ones; either may be none. Counted from 0, the ends excluded.
struct LineEdit {
  std::size_t old_begin;
  std::size_t old_end;
  std::size_t new_begin;
  std::size_t new_end;
};

// The fewest lines to take away and to put in, from top to bottom. Where that takes too long
// to find out, one edit replaces all: when more than some 1,400 lines stand in both texts, but
// in another order.
std::vector<LineEdit> line_edits(std::span<const std::string_view> old_lines,
                                 std::span<const std::string_view> new_lines);

}  // namespace gen_registry_docs::diff

#endif  // GEN_REGISTRY_DOCS_DIFF_LINE_EDITS_H
