// The pieces of Markdown that the generator's tables are written with, for hosts whose
// own tables stand beside them. None adds a line end.
#ifndef REGISTRY_DOCS_MARKDOWN_H
#define REGISTRY_DOCS_MARKDOWN_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/value.h"

namespace registry_docs::markdown {

// A code span: the text between two backticks, otherwise as it is.
std::string code(std::string_view text);

// A text made safe for one table cell: white space trimmed at both ends and each run of
// it inside, line ends included, made one blank; each "|" written "\|".
std::string cell(std::string_view text);

// One table row. The cells are used as they are.
std::string row(std::span<const std::string> cells);

// The lines of a table: header row, rule row, then one line per row.
std::vector<std::string> table(const std::vector<std::string>& header,
                               std::span<const std::vector<std::string>> rows);

// A value as a reader writes it: booleans as in JSON, the items of a list joined with
// ", ", a floating-point number in the shortest form that reads back the same and with a
// fraction or an exponent, null as "None".
std::string value(const Value& value);

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_H
