// The escapes of JSON's strings.
#ifndef TESMO_SORVET_DOCUMENT_ESCAPES_H
#define TESMO_SORVET_DOCUMENT_ESCAPES_H

#include <string_view>

#include "tesmo_sorvet/document/refusal.h"

namespace tesmo_sorvet {

// What is expected where neither a character nor an escape may stand.
constexpr std::string_view escape_or_character =
    "an escape that JSON has, and no bare control character";

struct Escape {
  char32_t code_point;  // a low surrogate where one stands without a high one before it
  const char* end;
};

// The escape that begins at `at`, with a backslash. Throws RegistryError for one that JSON
// does not have, and for a high surrogate without a low one behind it.
Escape read_escape(const Source& source, const char* at);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_DOCUMENT_ESCAPES_H
