// Values as a person types them.
#ifndef REGISTRY_DOCS_CATALOG_LITERALS_H
#define REGISTRY_DOCS_CATALOG_LITERALS_H

#include <deque>
#include <string>
#include <string_view>

#include "json/node.h"
#include "json_schema/field.h"

namespace registry_docs::catalog {

// A string as it is, unless it would be taken for something else: then, like every other
// value, as compact JSON. Borrows from the document, or from `texts`, which keeps each in its
// place.
std::string_view literal_of(const json::Node& value, std::deque<std::string>& texts);

// Adds to the field, and to those within it, the literals of its default, values and examples.
void add_literals(json_schema::Field& field, std::deque<std::string>& texts);

}  // namespace registry_docs::catalog

#endif  // REGISTRY_DOCS_CATALOG_LITERALS_H
