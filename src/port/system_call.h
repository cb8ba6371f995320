// How system calls fail.
#ifndef PORT_SYSTEM_CALL_H
#define PORT_SYSTEM_CALL_H

#include <cerrno>
#include <system_error>

namespace port {

// The failure that errno holds.
inline std::error_code last_error() { return {errno, std::generic_category()}; }

// `result` of a call that returns a negative number when it fails; then throws
// std::system_error, which names the call.
inline int require(int result, const char* call) {
  if (result < 0) throw std::system_error(last_error(), call);
  return result;
}

// Makes a call, which returns 0 unless it fails, until no signal interrupts it. Returns its
// failure, if any.
template <typename Call>
std::error_code finish(Call call) {
  while (call() != 0) {
    if (errno != EINTR) return last_error();
  }
  return {};
}

}  // namespace port

#endif  // PORT_SYSTEM_CALL_H
