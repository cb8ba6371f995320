// A template's source, cut into texts and tags.
#ifndef REGISTRY_DOCS_LAYOUTS_PIECES_H
#define REGISTRY_DOCS_LAYOUTS_PIECES_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace registry_docs::layouts {

struct Piece {
  enum class Kind : std::uint8_t {
    text,  // within one line, with its end
    value,
    raw_value,
    section,
    inverted,
    end,
    partial,
    comment,
    delimiters
  };

  Kind kind;
  std::string_view content;  // of a tag: what stands behind its sign, without white space
  std::size_t line;
  bool begins_line = false;      // of the template without lines that hold nothing but tags
  bool is_alone = false;         // a partial, on its line
  std::string_view indent = {};  // which stands before it there
};

// Without comments, changes of the delimiters, and all that stands around the tags of lines
// that show nothing themselves: lines of sections and their ends, comments and changes of the
// delimiters, and lines of one partial. Borrows from the source, which messages call `name`.
// Throws InputError for a tag without an end and for delimiters that are none.
std::vector<Piece> pieces_of(std::string_view name, std::string_view source);

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_PIECES_H
