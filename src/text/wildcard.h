// Patterns in which "*" stands for any characters, none included.
#ifndef TEXT_WILDCARD_H
#define TEXT_WILDCARD_H

#include <string_view>

namespace text {

inline bool has_wildcard(std::string_view pattern) {
  return pattern.find('*') != std::string_view::npos;
}

// Whether all of the name fits the pattern. Takes at most the product of their lengths.
bool fits_wildcards(std::string_view name, std::string_view pattern);

}  // namespace text

#endif  // TEXT_WILDCARD_H
