// A descriptor, closed when it goes out of scope.
#ifndef PORT_DESCRIPTOR_H
#define PORT_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

#include "port/system_call.h"

namespace port {

class Descriptor {
 public:
  // Takes the number of an open file over, or a negative one for none.
  explicit Descriptor(int number = -1) noexcept : number_(number) {}
  ~Descriptor() { close(); }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  // Negative when it is closed, which poll(2) passes over.
  [[nodiscard]] int number() const noexcept { return number_; }
  [[nodiscard]] bool is_open() const noexcept { return number_ >= 0; }

  // It is closed then, whatever this returns: some file systems report a failed write only
  // here. An interrupted one is closed all the same, and no failure.
  std::error_code close() noexcept {
    if (!is_open() || ::close(std::exchange(number_, -1)) == 0 || errno == EINTR) return {};
    return last_error();
  }

 private:
  int number_;
};

}  // namespace port

#endif  // PORT_DESCRIPTOR_H
