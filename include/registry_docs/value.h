// A default, an accepted value or a bound, as a registry or a schema holds it.
#ifndef REGISTRY_DOCS_VALUE_H
#define REGISTRY_DOCS_VALUE_H

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace registry_docs {

// The kinds are kept apart: the boolean true, the integer 1 and the floating-point
// number 1.0 are three values, and are spelled "true", "1" and "1.0". Texts are UTF-8.
class Value {
 public:
  using List = std::vector<Value>;
  // Integers above the largest std::int64_t are held as std::uint64_t.
  using Variant = std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double,
                               std::string, List>;

  // Implicit throughout, so that a host's declarations read as the values they are.
  Value() noexcept : held_(nullptr) {}
  Value(std::nullptr_t) noexcept : held_(nullptr) {}
  Value(std::same_as<bool> auto value) noexcept : held_(value) {}
  Value(std::signed_integral auto value) noexcept : held_(static_cast<std::int64_t>(value)) {}
  Value(std::unsigned_integral auto value) noexcept
      requires(!std::same_as<decltype(value), bool>)
      : held_(static_cast<std::uint64_t>(value)) {}
  Value(std::floating_point auto value) noexcept : held_(static_cast<double>(value)) {}
  Value(std::string value) noexcept : held_(std::move(value)) {}
  Value(std::string_view value) : held_(std::string(value)) {}
  Value(const char* value) : held_(std::string(value)) {}
  Value(List value) noexcept : held_(std::move(value)) {}

  [[nodiscard]] bool is_null() const noexcept {
    return std::holds_alternative<std::nullptr_t>(held_);
  }

  // For std::visit.
  [[nodiscard]] const Variant& held() const noexcept { return held_; }

 private:
  Variant held_;
};

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_VALUE_H
