// The program's heap.
#ifndef PORT_HEAP_H
#define PORT_HEAP_H

#include <filesystem>

namespace port {

// What a check makes most of its memory of.
enum class Made { of_registry, of_answer };

// Readies the heap for what is made of a large file. Has an effect on speed alone.
void ready_heap(const std::filesystem::path& source, Made made);

}  // namespace port

#endif  // PORT_HEAP_H
