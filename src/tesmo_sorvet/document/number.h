// JSON's numbers as values.
#ifndef TESMO_SORVET_DOCUMENT_NUMBER_H
#define TESMO_SORVET_DOCUMENT_NUMBER_H

#include <optional>
#include <string>
#include <string_view>

#include "registry_docs/value.h"
#include "tesmo_sorvet/document/document.h"

namespace tesmo_sorvet {

// Whether a number can be held, as Kind::integer without fraction and exponent, else as
// Kind::floating. Here and below, `number` is spelled as JSON allows.
bool can_be_held(Kind kind, std::string_view number);

// What is wrong with a number that cannot be held: "expected ..., found NUMBER".
std::string number_refusal(Kind kind, std::string_view number);

// From -2^63 to 2^64 - 1; nothing outside that range.
std::optional<registry_docs::Value> integer_value(std::string_view number);

// The nearest double; nothing for a number too large for any.
std::optional<double> floating_value(std::string_view number);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_DOCUMENT_NUMBER_H
