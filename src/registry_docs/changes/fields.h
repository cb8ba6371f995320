// What changed between two schemas of what a tool is given, or of what it answers.
#ifndef REGISTRY_DOCS_CHANGES_FIELDS_H
#define REGISTRY_DOCS_CHANGES_FIELDS_H

#include <string>
#include <vector>

#include "json_schema/field.h"
#include "registry_docs/changes/change.h"

namespace registry_docs::changes {

// Adds the changes between two whole schemas of a tool.
void add_changes(const json_schema::Field& before, const json_schema::Field& after,
                 const std::string& tool, Side side, std::vector<Change>& changes);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_FIELDS_H
