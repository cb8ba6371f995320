// What a person and a program read for a state.
#ifndef GEN_REGISTRY_DOCS_FORMATS_STATE_NAME_H
#define GEN_REGISTRY_DOCS_FORMATS_STATE_NAME_H

#include "registry_docs/report.h"

namespace gen_registry_docs::formats {

const char* state_name(registry_docs::BlockState state);
const char* state_name(registry_docs::FileState state);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_STATE_NAME_H
