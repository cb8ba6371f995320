#include "tesmo_sorvet/excerpt.h"

namespace tesmo_sorvet {

std::string in_quotes(std::string_view text, char quote) {
  return quote + excerpt(text) + quote;
}

}  // namespace tesmo_sorvet
