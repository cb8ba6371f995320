#include "port/heap.h"

#include <malloc.h>
#include <sys/mman.h>

#include <cstdint>
#include <cstdlib>
#include <limits>

namespace port {
namespace {

constexpr std::uintmax_t large = 1 << 20;
constexpr std::uintmax_t huge_page = 2 << 20;

// A check's memory, as a multiple of the size of what it is made of, about.
constexpr std::uintmax_t share_of_registry = 5;
constexpr std::uintmax_t share_of_answer = 12;

}  // namespace

// Of a check of 10,000 tools, a third is spent on having the system map pages of 4 KiB one by
// one, often for memory that was given back to it just before. So the heap keeps what it has,
// and begins with a piece of pages of 2 MiB, none of which is there before it is used.
void ready_heap(const std::filesystem::path& source, Made made) {
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(source, failure);
  if (failure || size < large) return;
  constexpr int never = std::numeric_limits<int>::max();
  ::mallopt(M_MMAP_THRESHOLD, never);
  ::mallopt(M_TRIM_THRESHOLD, never);
  const auto share = made == Made::of_registry ? share_of_registry : share_of_answer;
  const std::size_t room = (size * share / huge_page + 1) * huge_page;
  void* const piece = std::aligned_alloc(huge_page, room);
  if (piece != nullptr) ::madvise(piece, room, MADV_HUGEPAGE);
  std::free(piece);
}

}  // namespace port
