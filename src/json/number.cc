#include "json/number.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "port/to_double.h"
#include "registry_docs/text.h"

namespace json {
namespace {

template <typename T>
std::optional<T> whole(std::string_view number) {
  T held = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), held);
  if (result.ec != std::errc()) return std::nullopt;
  return held;
}

// Whether a number that is out of a double's range is too small for it, not too large.
bool is_tiny(std::string_view number) {
  const std::size_t e = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, e);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = digits.find_first_of("123456789");
  std::string_view exponent = number.substr(std::min(e + 1, number.size()));
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  const auto scale = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  if (exponent.empty()) return scale < 0;
  const auto power = whole<std::int32_t>(exponent);
  return power ? scale + *power < 0 : exponent.starts_with('-');
}

}  // namespace

bool can_be_held(Kind kind, std::string_view number) {
  return kind == Kind::integer ? integer_value(number).has_value()
                               : floating_value(number).has_value();
}

std::string number_refusal(Kind kind, std::string_view number) {
  return std::string("expected ") +
         (kind == Kind::integer ? "an integer from -2^63 to 2^64 - 1"
                                : "a number that a double can hold") +
         ", found " + registry_docs::excerpt(number);
}

std::optional<registry_docs::Value> integer_value(std::string_view number) {
  if (const auto held = whole<std::int64_t>(number)) return *held;
  if (const auto held = whole<std::uint64_t>(number)) return *held;
  return std::nullopt;
}

std::optional<double> floating_value(std::string_view number) {
  if (const auto held = port::to_double(number)) return held;
  if (!is_tiny(number)) return std::nullopt;
  return number.starts_with('-') ? -0.0 : 0.0;
}

}  // namespace json
