// The markers that fence a generated block, for hosts that take them out of a text.
#ifndef REGISTRY_DOCS_MARKERS_H
#define REGISTRY_DOCS_MARKERS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "registry_docs/syntax.h"

namespace registry_docs {

// "<!-- registry:NAME -->" or "<!-- /registry:NAME -->", to the character. NAME is one or
// more letters and numbers of any script, "_", ":" and "-".
struct Marker {
  enum class Kind { opening, closing };

  Kind kind;
  std::string_view name;  // borrows from the text that was searched
  std::size_t begin;      // byte offsets in that text
  std::size_t end;
};

// The first marker that begins at or after the byte `from`, whether or not it has a
// partner or ends its line.
std::optional<Marker> find_marker(std::string_view text, std::size_t from);

// The same in comments of that kind.
std::optional<Marker> find_marker(std::string_view text, std::size_t from,
                                  const Comment& comment);

// The first comment at or after the byte `from` that is no marker but was surely meant as one,
// with blanks amiss or none; comments of over 500 bytes are passed over. `name` is what it
// names, of whatever characters.
std::optional<Marker> find_careless_marker(std::string_view text, std::size_t from,
                                           const Comment& comment = {});

// A block's markers as a person is to write them.
std::string opening_marker(std::string_view name, const Comment& comment = {});
std::string closing_marker(std::string_view name, const Comment& comment = {});

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_MARKERS_H
