// Which program this is.
#ifndef GEN_REGISTRY_DOCS_VERSION_H
#define GEN_REGISTRY_DOCS_VERSION_H

#include <string_view>

namespace gen_registry_docs {

// "1.2.3 (0123456789ab)": the version and the commit it was built from, with "-dirty" where
// the sources were not those of the commit. Sources without a history have no commit.
std::string_view version();

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_VERSION_H
