#include "registry_docs/markdown/fence.h"

#include <algorithm>
#include <array>

#include "registry_docs/markdown/markers_in.h"
#include "registry_docs/markdown/safe.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view no_language = "text";

// The languages whose code formatters write anew when they know them by these names. Readers
// know them in capitals, too.
constexpr std::array<std::string_view, 36> formatted_languages = {
    "cjs",   "css",   "cts",  "es6",        "geojson", "gql",  "graphql", "handlebars",
    "hbs",   "htm",   "html", "javascript", "js",      "json", "json5",   "jsonc",
    "jsonl", "jsx",   "less", "markdown",   "md",      "mdx",  "mjml",    "mjs",
    "mts",   "node",  "pcss", "postcss",    "scss",    "ts",   "tsx",     "typescript",
    "vue",   "xhtml", "yaml", "yml"};

std::string language_name(std::string_view info) {
  std::string name(info.empty() ? no_language : info);
  if (std::ranges::find(formatted_languages, name) == formatted_languages.end()) return name;
  for (char& c : name) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return name;
}

std::string_view leading_run(std::string_view text, char c) {
  return text.substr(0, std::min(text.find_first_not_of(c), text.size()));
}

std::size_t longest_run_of_backquotes(std::string_view text) {
  std::size_t longest = 0;
  for (std::size_t at = text.find('`'); at < text.size(); at = text.find('`', at)) {
    const std::string_view run = leading_run(text.substr(at), '`');
    longest = std::max(longest, run.size());
    at += run.size();
  }
  return longest;
}

std::string_view without_last_blanks(std::string_view line) {
  while (!line.empty() && text::is_blank(line.back())) line.remove_suffix(1);
  return line;
}

// What the block shows, line by line, without the indent that the fence has.
std::vector<std::string_view> shown_lines(const Fence& fence, std::span<const Line> lines) {
  std::vector<std::string_view> shown;
  shown.reserve(lines.size() + 1);
  if (!is_language(fence.info)) shown.push_back(fence.info);
  for (const Line& line : lines) {
    shown.push_back(without_last_blanks(line.whole.substr(
        std::min(indent_of(line.whole, fence.indent).size, line.whole.size()))));
  }
  return shown;
}

void begin_line(std::string& to, std::string_view before, std::string_view line) {
  to += '\n';
  if (!line.empty()) to += before;
}

void append_marked(std::string& to, std::string_view language,
                   std::span<const std::string_view> lines, std::string_view before) {
  std::size_t size = shortest_fence;
  for (const std::string_view line : lines) {
    size = std::max(size, longest_run_of_backquotes(line) + 1);
  }
  const std::string marks(size, '`');
  to.append(marks).append(language_name(language));
  for (const std::string_view line : lines) {
    begin_line(to, before, line);
    to += line;
  }
  if (lines.empty()) to += '\n';
  begin_line(to, before, marks);
  to += marks;
}

// On one line, since formatters indent blank ones.
void append_element(std::string& to, std::span<const std::string_view> lines) {
  to += "<pre><code>";
  for (const std::string_view line : lines) {
    append_html(to, line);
    to += "&#10;";
  }
  to += "</code></pre>";
}

}  // namespace

bool is_language(std::string_view info) {
  return std::ranges::all_of(info, [](char c) {
    return text::is_letter_or_digit(c) || std::string_view("_+#.-").find(c) != npos;
  });
}

std::optional<Fence> fence_of(const Line& line) {
  if (line.text.empty() || (line.text[0] != '`' && line.text[0] != '~')) return std::nullopt;
  const std::string_view marks = leading_run(line.text, line.text[0]);
  const std::string_view info = text::trimmed(line.text.substr(marks.size()), text::is_blank);
  const bool is_span = marks[0] == '`' && info.find('`') != std::string_view::npos;
  if (marks.size() < shortest_fence || is_span) return std::nullopt;
  return Fence{.marks = marks, .info = info, .indent = line.indent};
}

bool closes(const Line& line, const Fence& fence) {
  constexpr std::size_t most_further = 3;  // columns
  return line.text.size() >= fence.marks.size() &&
         line.text.find_first_not_of(fence.marks[0]) == std::string_view::npos &&
         line.indent <= fence.indent + most_further;
}

void append_fenced(std::string& to, const Fence& fence, std::span<const Line> lines,
                   std::string_view before) {
  const std::vector<std::string_view> shown = shown_lines(fence, lines);
  const std::string_view last = lines.empty() ? fence.info : lines.back().whole;
  const char* const end = last.data() + last.size();
  if (has_marker({fence.info.data(), end})) {  // it may stand on two lines
    append_element(to, shown);
  } else {
    append_marked(to, is_language(fence.info) ? fence.info : "", shown, before);
  }
}

}  // namespace registry_docs::markdown
