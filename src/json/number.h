// JSON's numbers as values.
#ifndef JSON_NUMBER_H
#define JSON_NUMBER_H

#include <optional>
#include <string>
#include <string_view>

#include "json/document.h"
#include "registry_docs/value.h"

namespace json {

// Whether a number can be held, as Kind::integer without fraction and exponent, else as
// Kind::floating. Here and below, `number` is spelled as JSON allows.
bool can_be_held(Kind kind, std::string_view number);

// What is wrong with a number that cannot be held: "expected ..., found NUMBER".
std::string number_refusal(Kind kind, std::string_view number);

// From -2^63 to 2^64 - 1; nothing outside that range.
std::optional<registry_docs::Value> integer_value(std::string_view number);

// The nearest double; nothing for a number too large for any.
std::optional<double> floating_value(std::string_view number);

}  // namespace json

#endif  // JSON_NUMBER_H
