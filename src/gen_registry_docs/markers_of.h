// A block's markers as a person is to write them.
#ifndef GEN_REGISTRY_DOCS_MARKERS_OF_H
#define GEN_REGISTRY_DOCS_MARKERS_OF_H

#include <string>
#include <string_view>

namespace gen_registry_docs {

inline std::string opening_marker(std::string_view name) {
  return "<!-- registry:" + std::string(name) + " -->";
}

inline std::string closing_marker(std::string_view name) {
  return "<!-- /registry:" + std::string(name) + " -->";
}

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_MARKERS_OF_H
