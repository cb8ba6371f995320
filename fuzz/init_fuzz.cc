// Wherever a block is put into a text, the text gains markers and line feeds alone.
#include <algorithm>

#include "fuzz/target.h"
#include "gen_registry_docs/init/headings.h"
#include "gen_registry_docs/init/live_lines.h"
#include "gen_registry_docs/init/place.h"
#include "registry/syntax.h"

namespace registry_docs::fuzz {
namespace {

using gen_registry_docs::init::Heading;
using gen_registry_docs::init::Place;

std::string without_line_feeds(std::string text) {
  std::erase(text, '\n');
  return text;
}

void require_addition(const Place& place, std::string_view text, const std::string& expected) {
  require(place.begin <= place.end && place.end <= text.size(), "a place of the text",
          std::to_string(place.begin));
  const bool begins_line = place.begin == 0 || text[place.begin - 1] == '\n';
  require(begins_line && (place.before.empty() || place.before.ends_with('\n')),
          "a block that begins its line", place.before);
  const std::string made = std::string(text.substr(0, place.begin)) + place.before +
                           place.after + std::string(text.substr(place.end));
  require(without_line_feeds(made) == expected, "the same text", made);
}

}  // namespace

void run(std::string_view input) {
  if (find_ill_formed(input)) return;
  const std::string expected = without_line_feeds(std::string(input));
  require_addition(gen_registry_docs::init::place_at_end(input), input, expected);
  for (const char* const path : {"a.md", "a.mdx", "a.html"}) {
    const Syntax syntax = registry::syntax_of(path, std::nullopt).file;
    const auto lines = gen_registry_docs::init::live_lines(input, syntax);
    for (const Heading& heading : gen_registry_docs::init::headings_of(lines)) {
      require_addition(gen_registry_docs::init::place_below(heading, input), input, expected);
      require(heading.text.find('\n') == std::string_view::npos, "one line",
              std::string(heading.text));
    }
  }
}

}  // namespace registry_docs::fuzz
