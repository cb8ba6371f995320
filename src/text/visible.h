// Characters that show nothing, or change what shows around them.
#ifndef TEXT_VISIBLE_H
#define TEXT_VISIBLE_H

#include <cstdint>
#include <string>

namespace text {

// Whether it is a control or formatting character or a line separator.
bool is_hidden(std::int32_t code_point);

// Appends the escape that shows the code point: "\n", "\x1b", "\u202e", "\U000e0001".
void append_escape(std::string& to, std::int32_t code_point);

}  // namespace text

#endif  // TEXT_VISIBLE_H
