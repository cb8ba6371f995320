// A descriptor, closed when it goes out of scope.
#ifndef MCP_CLIENT_DESCRIPTOR_H
#define MCP_CLIENT_DESCRIPTOR_H

#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace mcp_client {

class Descriptor {
 public:
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
  void close() noexcept {
    if (is_open()) ::close(std::exchange(number_, -1));
  }

 private:
  int number_;
};

// `result` of a system call that returns a negative number when it fails, which throws.
inline int require(int result, const char* call) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), call);
  return result;
}

}  // namespace mcp_client

#endif  // MCP_CLIENT_DESCRIPTOR_H
