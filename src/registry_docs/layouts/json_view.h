// What templates see of JSON.
#ifndef REGISTRY_DOCS_LAYOUTS_JSON_VIEW_H
#define REGISTRY_DOCS_LAYOUTS_JSON_VIEW_H

#include "json/node.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::layouts {

// A string as a text, a boolean as a truth, a number as it is spelled, null as nothing. The
// members of objects are known only when they are read. Borrows from the document.
View view_of(const json::Node& node);

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_JSON_VIEW_H
