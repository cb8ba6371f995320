// How a file holds its blocks.
#ifndef REGISTRY_DOCS_SYNTAX_H
#define REGISTRY_DOCS_SYNTAX_H

#include <string>

namespace registry_docs {

// What a comment begins and ends with, without the blanks inside of it.
struct Comment {
  std::string open = "<!--";
  std::string close = "-->";  // empty: it ends with its line, and only blanks stand before it

  bool operator==(const Comment&) const = default;
};

// Without more being said, the first host's rules.
struct Syntax {
  Comment comment = {};
  // Markers in fenced code are examples, and a blank line parts a block from its markers.
  bool is_markdown = false;
  // The lines of a block stand behind what its opening marker stands behind: blanks and, in
  // Markdown, quotations and lists. The file keeps its line endings.
  bool keeps_form = false;

  bool operator==(const Syntax&) const = default;
};

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_SYNTAX_H
