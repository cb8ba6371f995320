#include "text/value.h"

#include <array>
#include <charconv>
#include <cmath>

#include "text/join.h"

namespace text {
namespace {

using registry_docs::Value;

// The shortest decimal form that reads back as the number is digits times a power of ten.
struct Decimal {
  std::string digits;  // without a point, the first one before it
  int exponent = 0;
};

// `number` must be finite and not negative.
Decimal shortest_decimal(double number) {
  std::array<char, 32> buffer{};
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                        std::chars_format::scientific)
                              .ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t e = text.find('e');
  Decimal decimal{.digits = std::string(text.substr(0, 1))};
  if (e > 1) decimal.digits += text.substr(2, e - 2);
  const std::size_t exponent = e + (text[e + 1] == '+' ? 2 : 1);
  std::from_chars(text.data() + exponent, end, decimal.exponent);
  return decimal;
}

std::string scientific(const Decimal& decimal) {
  std::string text = decimal.digits.substr(0, 1);
  if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
  const std::string exponent = std::to_string(std::abs(decimal.exponent));
  text += decimal.exponent < 0 ? "e-" : "e+";
  return text + (exponent.size() < 2 ? "0" : "") + exponent;
}

std::string positional(const Decimal& decimal) {
  if (decimal.exponent < 0) {
    return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') +
           decimal.digits;
  }
  const std::size_t whole = static_cast<std::size_t>(decimal.exponent) + 1;
  std::string text = decimal.digits;
  if (text.size() < whole + 1) text.resize(whole + 1, '0');
  return text.insert(whole, ".");
}

std::string number(double number) {
  if (std::isnan(number)) return "nan";
  const std::string sign = std::signbit(number) ? "-" : "";
  if (std::isinf(number)) return sign + "inf";
  const Decimal decimal = shortest_decimal(std::abs(number));
  const bool is_positional = decimal.exponent >= -4 && decimal.exponent < 16;
  return sign + (is_positional ? positional(decimal) : scientific(decimal));
}

// Appends a value's spelling.
struct Spelling {
  std::string& to;

  void operator()(std::nullptr_t) const { to += "None"; }
  void operator()(bool held) const { to += held ? "true" : "false"; }
  void operator()(std::int64_t held) const { to += std::to_string(held); }
  void operator()(std::uint64_t held) const { to += std::to_string(held); }
  void operator()(double held) const { to += number(held); }
  void operator()(const std::string& held) const { to += held; }
  void operator()(const Value::List& held) const {
    append_joined(to, held, ", ", [this](const Value& item) { append_value(to, item); });
  }
};

}  // namespace

void append_value(std::string& to, const Value& value) {
  std::visit(Spelling{to}, value.held());
}

std::string spelled(const Value& value) {
  std::string text;
  append_value(text, value);
  return text;
}

}  // namespace text
