// The name that was probably meant.
#ifndef GEN_REGISTRY_DOCS_NEAREST_H
#define GEN_REGISTRY_DOCS_NEAREST_H

#include <span>
#include <string_view>

namespace gen_registry_docs {

// The candidate that differs from `name` least, empty when none is near: two bytes at most may
// be put in, taken away, changed or swapped with the next, and a third of the candidate's.
std::string_view nearest(std::string_view name, std::span<const std::string_view> candidates);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_NEAREST_H
