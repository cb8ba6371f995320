// Standard output and standard error.
#ifndef GEN_REGISTRY_DOCS_OUTPUT_H
#define GEN_REGISTRY_DOCS_OUTPUT_H

#include <string>
#include <string_view>
#include <vector>

namespace gen_registry_docs {

// Prints to standard output. Throws FileError when it cannot be written.
void print(std::string_view text);

// Each with a line feed.
void print_lines(const std::vector<std::string>& lines);

// Prints a line to standard error, for a person. What a terminal would act on is escaped.
void print_error(std::string_view message);

// As above, of a message that has several lines.
void print_error_lines(std::string_view message);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_OUTPUT_H
