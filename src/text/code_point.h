// Reading single code points, and what Unicode says of them.
#ifndef TEXT_CODE_POINT_H
#define TEXT_CODE_POINT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace text {

struct CodePoint {
  std::int32_t value = 0;
  std::size_t size = 0;  // in bytes of UTF-8; 0: what stands there is ill-formed
};

// The code point that begins at the byte `at`, which must lie inside `text`.
CodePoint code_point_at(std::string_view text, std::size_t at);

// Whether Unicode classes the code point as a letter or a number, of any script.
bool is_letter_or_number(std::int32_t code_point);

// The text with its first character in upper case and every other one in lower case,
// each mapped to a single character. `text` must be UTF-8.
std::string capitalised(std::string_view text);

}  // namespace text

#endif  // TEXT_CODE_POINT_H
