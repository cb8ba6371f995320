#include "port/disk.h"

#include <fcntl.h>

namespace port {

std::error_code claim_room(const Descriptor& file, std::size_t size) {
  const std::error_code failure = finish([&] {
    return ::fallocate(file.number(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size));
  });
  const bool is_offered = failure != std::errc::operation_not_supported &&
                          failure != std::errc::function_not_supported;
  return is_offered ? failure : std::error_code();
}

std::error_code store(const Descriptor& file) {
  const std::error_code failure = finish([&] { return ::fdatasync(file.number()); });
  const bool is_offered =
      failure != std::errc::invalid_argument && failure != std::errc::function_not_supported;
  return is_offered ? failure : std::error_code();
}

}  // namespace port
