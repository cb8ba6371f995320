#include "port/disk.h"

#include <fcntl.h>
#include <unistd.h>

namespace port {

// POSIX sets room aside only by making the file longer.
std::error_code claim_room(const Descriptor&, std::size_t) { return {}; }

std::error_code store(const Descriptor& file) {
#ifdef F_FULLFSYNC
  // fsync alone leaves the bytes in the disk's own memory there. Not every disk offers more.
  if (finish([&] { return ::fcntl(file.number(), F_FULLFSYNC); }) == std::error_code())
    return {};
#endif
  const std::error_code failure = finish([&] { return ::fsync(file.number()); });
  return failure == std::errc::invalid_argument ? std::error_code() : failure;
}

}  // namespace port
