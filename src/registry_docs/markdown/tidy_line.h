// A line of Markdown that is made tidy.
#ifndef REGISTRY_DOCS_MARKDOWN_TIDY_LINE_H
#define REGISTRY_DOCS_MARKDOWN_TIDY_LINE_H

#include "registry_docs/markdown/line.h"

namespace registry_docs::markdown {

struct TidyLine {
  Line line;
  bool is_code;  // within a fenced block, or the end of one
};

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_TIDY_LINE_H
