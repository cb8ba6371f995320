// The generated blocks as a table for people.
#ifndef GEN_REGISTRY_DOCS_FORMATS_LIST_H
#define GEN_REGISTRY_DOCS_FORMATS_LIST_H

#include <string>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs::formats {

// A line for each block with its file, its line and its state, in aligned columns. What a
// terminal would act on is escaped.
std::string block_list(const std::vector<registry_docs::FileReport>& files);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_LIST_H
