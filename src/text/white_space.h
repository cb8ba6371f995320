// White space as Unicode has it: the characters that separate words and are trimmed.
#ifndef TEXT_WHITE_SPACE_H
#define TEXT_WHITE_SPACE_H

#include <cstddef>
#include <string_view>

namespace text {

// The size in bytes of the white-space character that `text` begins with, or 0. The
// zero-width space U+200B is none.
std::size_t white_space_size(std::string_view text);

}  // namespace text

#endif  // TEXT_WHITE_SPACE_H
