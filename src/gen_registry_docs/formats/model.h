// What layouts see, as JSON.
#ifndef GEN_REGISTRY_DOCS_FORMATS_MODEL_H
#define GEN_REGISTRY_DOCS_FORMATS_MODEL_H

#include <string>

#include "registry_docs/layouts/view.h"

namespace gen_registry_docs::formats {

// The view with all that it leads to, which must end; members whose view is nothing are null.
// A line feed stands at the end.
std::string model_json(registry_docs::layouts::View view);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_MODEL_H
