#include "tesmo_sorvet/excerpt.h"

namespace tesmo_sorvet {

std::string excerpt(std::string_view text) {
  constexpr std::size_t most = 200;
  if (text.size() <= most) return std::string(text);
  std::size_t end = most;
  while ((static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return std::string(text.substr(0, end)) + "...";
}

std::string in_quotes(std::string_view text, char quote) {
  return quote + excerpt(text) + quote;
}

}  // namespace tesmo_sorvet
