// Line endings.
#ifndef TEXT_LINE_ENDINGS_H
#define TEXT_LINE_ENDINGS_H

#include <string>

namespace text {

// The text with every CR LF and every CR that stands alone made one line feed.
std::string with_line_feeds(std::string text);

}  // namespace text

#endif  // TEXT_LINE_ENDINGS_H
