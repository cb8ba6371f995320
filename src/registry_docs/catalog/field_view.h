// Fields as layouts see them.
#ifndef REGISTRY_DOCS_CATALOG_FIELD_VIEW_H
#define REGISTRY_DOCS_CATALOG_FIELD_VIEW_H

#include <vector>

#include "json_schema/field.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::catalog {

// The views borrow what they are given.
layouts::View words_view(const json_schema::Words& words);
layouts::View fields_view(const std::vector<json_schema::Field>& fields);

// Every field of a list, each before those within it.
layouts::View all_fields_view(const std::vector<json_schema::Field>& fields);

}  // namespace registry_docs::catalog

#endif  // REGISTRY_DOCS_CATALOG_FIELD_VIEW_H
