#include "gen_registry_docs/init/headings.h"

#include <algorithm>
#include <optional>

#include "registry_docs/markdown/line.h"
#include "text/ascii.h"

namespace gen_registry_docs::init {
namespace {

namespace markdown = registry_docs::markdown;

constexpr std::size_t code_indent = 4;
constexpr std::size_t lowest = 6;

bool is_code(std::string_view line) {
  return markdown::indent_of(line).columns >= code_indent;
}

std::string_view without_blanks(std::string_view line) {
  return text::trimmed(line, text::is_blank);
}

// "## Tools", which may end with marks again.
std::optional<Heading> marked(const LiveLine& line) {
  const std::string_view text = without_blanks(line.text);
  const std::size_t level = std::min(text.find_first_not_of('#'), text.size());
  const bool is_heading =
      level >= 1 && level <= lowest && (level == text.size() || text::is_blank(text[level]));
  if (!is_heading || is_code(line.text)) return std::nullopt;
  std::string_view title = without_blanks(text.substr(level));
  const std::size_t end = title.find_last_not_of('#') + 1;
  if (end == 0 || text::is_blank(title[end - 1])) title = without_blanks(title.substr(0, end));
  return Heading{title, level, line.number, line.end};
}

// A line of text over one of "=" or "-".
std::optional<Heading> underlined(const LiveLine& above, const LiveLine& line) {
  const std::string_view marks = without_blanks(line.text);
  const std::string_view title = without_blanks(above.text);
  const bool is_line = !marks.empty() && (marks[0] == '=' || marks[0] == '-') &&
                       marks.find_first_not_of(marks[0]) == std::string_view::npos;
  if (!is_line || is_code(line.text) || is_code(above.text) || above.end != line.begin ||
      title.empty() || markdown::kind_of(title) != markdown::LineKind::prose) {
    return std::nullopt;
  }
  return Heading{title, marks[0] == '=' ? 1U : 2U, line.number, line.end};
}

}  // namespace

std::vector<Heading> headings_of(std::span<const LiveLine> lines) {
  std::vector<Heading> headings;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (const auto heading = marked(lines[i])) headings.push_back(*heading);
    if (i == 0) continue;
    if (const auto heading = underlined(lines[i - 1], lines[i])) headings.push_back(*heading);
  }
  return headings;
}

}  // namespace gen_registry_docs::init
