#include "port/pipe.h"

#include <fcntl.h>

#include <array>

namespace port {
namespace {

Descriptor above_standard(const Descriptor& file) {
  const int number = ::fcntl(file.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return Descriptor(require(number, "fcntl"));
}

}  // namespace

Pipe make_pipe() {
  std::array<int, 2> numbers{};
  require(::pipe2(numbers.data(), O_CLOEXEC), "pipe2");
  const Descriptor reading(numbers[0]);
  const Descriptor writing(numbers[1]);
  return {above_standard(reading), above_standard(writing)};
}

}  // namespace port
