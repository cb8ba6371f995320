// The refusal of a document as a whole, with the place of what is wrong.
#ifndef JSON_REFUSAL_H
#define JSON_REFUSAL_H

#include <string>
#include <string_view>

namespace json {

// A document's bytes, which must be UTF-8, and what messages call it.
struct Source {
  const std::string& name;
  const std::string& json;
};

// Both throw registry_docs::InputError "NAME:LINE:COLUMN: MESSAGE" for the byte at `at`, a
// place in the source. Lines and columns are counted from 1, columns in code points.
[[noreturn]] void refuse(const Source& source, const char* at, const std::string& message);
// The message is "expected EXPECTED, found" and what stands there.
[[noreturn]] void refuse_syntax(const Source& source, const char* at,
                                std::string_view expected);

}  // namespace json

#endif  // JSON_REFUSAL_H
