#include "gen_registry_docs/init/place.h"

#include <algorithm>

#include "text/ascii.h"

namespace gen_registry_docs::init {
namespace {

// The line that begins at `begin`, without its line feed.
std::string_view line_at(std::string_view text, std::size_t begin) {
  return text.substr(begin, std::min(text.find('\n', begin), text.size()) - begin);
}

bool is_blank(std::string_view line) { return std::ranges::all_of(line, text::is_blank); }

}  // namespace

Place place_at_end(std::string_view text) {
  if (text.empty()) return {.begin = 0, .end = 0};
  const bool is_ended = text.ends_with('\n');
  const std::string_view ended = text.substr(0, text.size() - (is_ended ? 1 : 0));
  const std::size_t last = ended.rfind('\n') + 1;  // the line: 0 where there is no other
  const std::string_view line = ended.substr(last);
  if (is_ended) {
    return {.begin = text.size(), .end = text.size(), .before = is_blank(line) ? "" : "\n"};
  }
  // Its line end is to be that of the line before it, and so it is written with the block.
  return {.begin = last, .end = text.size(), .before = std::string(line) + "\n\n"};
}

Place place_below(const Heading& heading, std::string_view text) {
  constexpr std::size_t lowest = 6;
  std::size_t at = heading.end;
  const bool has_blank = at < text.size() && is_blank(line_at(text, at));
  if (has_blank) at = std::min(at + line_at(text, at).size() + 1, text.size());
  Place place{.begin = at, .end = at, .before = has_blank ? "" : "\n"};
  if (at == text.size()) {
    place = place_at_end(text);
  } else if (!is_blank(line_at(text, at))) {
    place.after = "\n";
  }
  place.level = std::min(heading.level + 1, lowest);
  return place;
}

}  // namespace gen_registry_docs::init
