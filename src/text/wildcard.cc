#include "text/wildcard.h"

namespace text {

// Each part between two stars is taken where it is found first: what a later place would leave
// for the parts behind it is less.
bool fits_wildcards(std::string_view name, std::string_view pattern) {
  std::size_t star = pattern.find('*');
  if (star == std::string_view::npos) return name == pattern;
  if (!name.starts_with(pattern.substr(0, star))) return false;
  name.remove_prefix(star);
  for (;;) {
    pattern.remove_prefix(star + 1);
    star = pattern.find('*');
    if (star == std::string_view::npos) return name.ends_with(pattern);
    const std::size_t found = name.find(pattern.substr(0, star));
    if (found == std::string_view::npos) return false;
    name.remove_prefix(found + star);
  }
}

}  // namespace text
