// The program's heap.
#ifndef PORT_HEAP_H
#define PORT_HEAP_H

#include <filesystem>

namespace port {

// Readies the heap for what is made of a large file, a registry. Has an effect on speed alone.
void ready_heap(const std::filesystem::path& registry);

}  // namespace port

#endif  // PORT_HEAP_H
