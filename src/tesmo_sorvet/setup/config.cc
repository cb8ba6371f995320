#include "tesmo_sorvet/setup/config.h"

#include "registry_docs/markers.h"
#include "tesmo_sorvet/setup/string_literal.h"

namespace tesmo_sorvet {
namespace {

constexpr std::string_view constant = "TESMO_INSTRUCTION_CONTENT";

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\f'; }

// Passes over blanks and over line feeds that a backslash takes away.
void skip_blanks(Source& source) {
  while (true) {
    if (is_blank(source.peek())) {
      source.skip(1);
    } else if (source.rest().starts_with("\\\n")) {
      source.skip(2);
    } else {
      return;
    }
  }
}

// Reads "NAME =" or "NAME: type =" at the start of a line; leaves the source where it was
// unless it was there. Refuses "NAME +=": the text would be no longer the literal's alone.
bool read_assignment(Source& source) {
  Source ahead = source;
  if (!ahead.rest().starts_with(constant)) return false;
  ahead.skip(constant.size());
  skip_blanks(ahead);
  if (ahead.peek() == ':' && !ahead.rest().starts_with(":=")) {
    while (ahead.peek() != '=' && ahead.peek() != '\n' && !ahead.at_end()) ahead.skip(1);
  }
  if (ahead.rest().starts_with("+=")) ahead.refuse("a plain assignment");
  if (!ahead.rest().starts_with('=') || ahead.rest().starts_with("==")) return false;
  ahead.skip(1);
  source = ahead;
  return true;
}

// Goes on to behind the "=" of the next assignment of the constant.
bool find_assignment(Source& source) {
  while (!source.at_end()) {
    if (source.at_line_start() && read_assignment(source)) return true;
    source.skip_to_next(constant.front());
  }
  return false;
}

void require_end_of_statement(Source& source) {
  skip_blanks(source);
  constexpr std::string_view ends = "\n#";
  if (source.at_end() || ends.find(source.peek()) != std::string_view::npos) return;
  source.refuse("one plain string literal and nothing after it");
}

}  // namespace

std::string instruction_content(const std::string& path, std::string_view text) {
  constexpr std::string_view byte_order_mark = "\uFEFF";
  if (text.starts_with(byte_order_mark)) text.remove_prefix(byte_order_mark.size());
  Source source(path, text);
  const std::string wanted = "a plain string literal assigned to " + std::string(constant) +
                             " at the start of a line";
  if (!find_assignment(source)) source.refuse(wanted);
  skip_blanks(source);
  std::string content = read_string_literal(source);
  require_end_of_statement(source);
  if (find_assignment(source)) {
    source.refuse("one assignment of " + std::string(constant), "a second one");
  }
  return content;
}

std::string without_markers(std::string_view text) {
  std::string result;
  std::size_t copied = 0;
  for (auto marker = registry_docs::find_marker(text, 0); marker;
       marker = registry_docs::find_marker(text, marker->end)) {
    result += text.substr(copied, marker->begin - copied);
    copied = marker->end + (text.substr(marker->end).starts_with('\n') ? 1 : 0);
  }
  return result.append(text.substr(copied));
}

}  // namespace tesmo_sorvet
