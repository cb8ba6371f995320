// Whatever a text holds, what is written of it holds no marker and nothing hidden, ends what
// it begins, and is no longer than it must be.
#include <algorithm>
#include <functional>
#include <set>

#include "fuzz/target.h"
#include "registry_docs/markdown/anchor.h"
#include "registry_docs/markdown/safe.h"
#include "registry_docs/markers.h"
#include "text/code_point.h"
#include "text/visible.h"

namespace registry_docs::fuzz {
namespace {

using Append = std::function<void(std::string&, std::string_view)>;

void require_no_hidden_characters(const std::string& written) {
  for (std::size_t at = 0; at < written.size();) {
    const auto [value, size] = text::code_point_at(written, at);
    const bool is_allowed =
        value == '\n' || value == '\t' || value == 0x200C || value == 0x200D;
    require(size != 0 && (is_allowed || !text::is_hidden(value)), "only what shows", written);
    at += size;
  }
}

std::string written(const Append& append, std::string_view input) {
  const std::string before = "before";
  std::string text = before;
  append(text, input);
  require(text.starts_with(before), "what stood there before", text);
  text.erase(0, before.size());
  require(!find_marker(text, 0) && !find_careless_marker(text, 0), "no marker", text);
  require(text.size() <= 8 * input.size() + 16, "no more than is needed", text);
  require_no_hidden_characters(text);
  return text;
}

// Of a line: the backquotes of the fence that it is, if any.
std::string_view fence(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  const std::size_t size = std::min(line.find_first_not_of('`'), line.size());
  const bool is_fence = size >= 3 && line.find('`', size) == std::string_view::npos;
  return line.substr(0, is_fence ? size : 0);
}

void require_closed_blocks(const std::string& blocks) {
  std::string open;  // the fence that is
  std::istringstream lines(blocks);
  for (std::string line; std::getline(lines, line);) {
    const std::string_view found = fence(line);
    if (open.empty()) {
      open = found;
      const bool is_html = strip(line).starts_with("<pre><code>");
      require(!is_html || line.ends_with("</code></pre>"), "HTML on one line", blocks);
    } else if (found.size() >= open.size() && line.ends_with('`')) {
      open.clear();
    }
  }
  require(open.empty(), "closed blocks", blocks);
}

void require_cell(std::string text) {
  markdown::fit_cell(text, 0);
  require(text.find('\n') == std::string::npos, "one line", text);
  for (std::size_t bar = text.find('|'); bar < text.size(); bar = text.find('|', bar + 1)) {
    require(bar > 0 && text[bar - 1] == '\\', "no bare bar", text);
  }
}

void require_distinct_anchors(std::string_view input) {
  markdown::Anchors anchors;
  std::set<std::string> found;
  std::istringstream headings{std::string(input)};
  for (std::string heading; std::getline(headings, heading);) {
    const std::string anchor = anchors.next(heading);
    require(found.insert(anchor).second, "another anchor", anchor);
    require(anchor.find(' ') == std::string::npos, "no blank", anchor);
  }
}

}  // namespace

void run(std::string_view input) {
  if (find_ill_formed(input)) return;
  const std::string line = written(markdown::append_inline, input);
  require(line.find('\n') == std::string::npos, "one line", line);
  const std::string span = written(markdown::append_code_span, input);
  require(span.find('\n') == std::string::npos, "one line", span);
  const std::string html = written(markdown::append_html, input);
  require(html.find_first_of("<>\"") == std::string::npos, "only text", html);
  const std::string blocks = written(
      [](std::string& to, std::string_view text) { markdown::append_blocks(to, text, "  "); },
      input);
  require_closed_blocks(blocks);
  for (const std::string& text : {line, span, blocks, std::string(input)}) require_cell(text);
  require_distinct_anchors(input);
}

}  // namespace registry_docs::fuzz
