// What is said of the parts of a file that stand between no markers.
#ifndef REGISTRY_DOCS_REPOSITORY_PARTS_H
#define REGISTRY_DOCS_REPOSITORY_PARTS_H

#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"

namespace registry_docs::repository {

// Adds to the report of a file, whose text is read and whose blocks are as declared, its
// parts, in their places among the blocks, and what is wrong with them.
void look_at_parts(const Parts& parts, FileReport& report);

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_PARTS_H
