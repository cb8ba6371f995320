// How wide texts are where every character has one width or two.
#ifndef TEXT_WIDTH_H
#define TEXT_WIDTH_H

#include <cstddef>
#include <string_view>

namespace text {

// The columns of a UTF-8 text: two for a wide character and for an emoji of several, none for
// a mark above or below another character.
std::size_t width(std::string_view text);

}  // namespace text

#endif  // TEXT_WIDTH_H
