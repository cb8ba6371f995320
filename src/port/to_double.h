// Numbers with a fraction, which not every standard library reads without a locale.
#ifndef PORT_TO_DOUBLE_H
#define PORT_TO_DOUBLE_H

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

namespace port {

// The double nearest to a decimal number; none for a text that is not one from end to end, and
// for a number that is out of range: too large or, with some libraries, too small.
inline std::optional<double> to_double(std::string_view number) {
#ifdef __cpp_lib_to_chars
  double held = 0;
  const char* const end = number.data() + number.size();
  const auto [rest, failure] = std::from_chars(number.data(), end, held);
  if (failure != std::errc() || rest != end) return std::nullopt;
  return held;
#else
  if (number.find_first_not_of("0123456789.eE+-") != std::string_view::npos)
    return std::nullopt;
  const std::string text(number);
  char* rest = nullptr;
  const double held = std::strtod(text.c_str(), &rest);
  if (text.empty() || *rest != '\0' || std::isinf(held)) return std::nullopt;
  return held;
#endif
}

}  // namespace port

#endif  // PORT_TO_DOUBLE_H
