// The escapes of JSON's strings.
#ifndef JSON_ESCAPES_H
#define JSON_ESCAPES_H

#include <string_view>

#include "json/refusal.h"

namespace json {

// What is expected where neither a character nor an escape may stand.
constexpr std::string_view escape_or_character =
    "an escape that JSON has, and no bare control character";

struct Escape {
  char32_t code_point;  // a low surrogate where one stands without a high one before it
  const char* end;
};

// The escape that begins at `at`, with a backslash. Throws InputError for one that JSON
// does not have, and for a high surrogate without a low one behind it.
Escape read_escape(const Source& source, const char* at);

}  // namespace json

#endif  // JSON_ESCAPES_H
