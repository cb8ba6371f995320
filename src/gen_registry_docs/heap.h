// The program's heap.
#ifndef GEN_REGISTRY_DOCS_HEAP_H
#define GEN_REGISTRY_DOCS_HEAP_H

#include <filesystem>

namespace gen_registry_docs {

// Readies the heap for what a large registry needs. Has an effect on speed alone.
void ready_heap(const std::filesystem::path& registry);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_HEAP_H
