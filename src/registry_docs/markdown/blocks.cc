#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "registry_docs/markdown/fence.h"
#include "registry_docs/markdown/line.h"
#include "registry_docs/markdown/paragraph.h"
#include "registry_docs/markdown/prose.h"
#include "registry_docs/markdown/safe.h"
#include "registry_docs/markdown/shown_text.h"

namespace registry_docs::markdown {
namespace {

// Takes the lines before the first one of which that is true.
template <typename Predicate>
std::span<const Line> take_until(std::span<const Line>& lines, Predicate predicate) {
  const auto end = std::ranges::find_if(lines, predicate);
  const auto taken = lines.first(static_cast<std::size_t>(end - lines.begin()));
  lines = lines.subspan(taken.size());
  return taken;
}

bool ends_paragraph(const Line& line) { return line.text.empty() || fence_of(line); }

// Ends the line that `to` ends in, unless it holds no more than what is before each line.
void begin_block(std::string& to, std::string_view before) {
  const std::size_t line = to.rfind('\n') + 1;  // 0 without one
  if (to.size() - line <= before.size()) return;
  while (to.ends_with(' ')) to.pop_back();
  to.append("\n\n").append(before);
}

// Takes the block that the lines, of which the first is not blank, begin with, and appends it.
void append_block(std::string& to, std::span<const Line>& lines, std::string_view before) {
  const auto fence = fence_of(lines[0]);
  if (!fence) {
    append_paragraph(to, take_until(lines, ends_paragraph), before);
    return;
  }
  lines = lines.subspan(1);
  const auto content =
      take_until(lines, [&](const Line& line) { return closes(line, *fence); });
  begin_block(to, before);
  append_fenced(to, *fence, content, before);
  if (!lines.empty()) lines = lines.subspan(1);
}

}  // namespace

void append_blocks(std::string& to, std::string_view text, std::string_view indent) {
  if (is_plain_line(text)) {
    to += text;
    return;
  }
  std::string room;
  const std::vector<Line> all = lines_of(shown_text(text, room));
  std::span<const Line> lines(all);
  while (!lines.empty()) {
    append_block(to, lines, indent);
    take_until(lines, [](const Line& line) { return !line.text.empty(); });
    if (!lines.empty()) to.append("\n\n").append(indent);
  }
}

}  // namespace registry_docs::markdown
