// What layouts see, as JSON.
#ifndef GEN_REGISTRY_DOCS_FORMATS_MODEL_H
#define GEN_REGISTRY_DOCS_FORMATS_MODEL_H

#include <span>
#include <string>

#include "registry_docs/layouts/view.h"

namespace gen_registry_docs::formats {

struct NamedModel {
  std::string name;  // of one among several servers
  registry_docs::layouts::View view;
};

// The views with all that they lead to, which must end; members whose view is nothing are
// null. One without a name stands alone, others are members of an object. A line feed stands
// at the end.
std::string model_json(std::span<const NamedModel> models);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_MODEL_H
