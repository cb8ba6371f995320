#include "registry_docs/markdown/code_span.h"

#include <algorithm>

#include "registry_docs/markdown/fence.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;

// Whether only blanks stand before the end of `text` on its last line.
bool begins_line(std::string_view text) {
  text = text::trimmed(text, text::is_blank);
  return text.empty() || text.back() == '\n';
}

// Whether only blanks stand on the first line of `text`.
bool ends_line(std::string_view text) {
  const std::size_t end = text.find_first_not_of(" \t");
  return end == npos || text[end] == '\n';
}

// Makes a fenced block of the span, which stands between the two, if it is one.
void take_fence(CodeSpan& span, std::string_view before, std::string_view after) {
  const std::size_t end = span.content.find('\n');
  if (end == npos || span.quotes.size() < shortest_fence) return;
  const std::string_view info = text::trimmed(span.content.substr(0, end), text::is_blank);
  span.is_fenced = is_language(info) && begins_line(before) && begins_line(span.content) &&
                   ends_line(after);
  if (span.is_fenced) span.content.remove_prefix(end);
}

}  // namespace

std::string_view Backquotes::run_at(std::size_t at) const {
  const std::size_t end = std::min(text_.find_first_not_of('`', at), text_.size());
  return text_.substr(at, end - at);
}

std::size_t Backquotes::find(std::size_t size, std::size_t from) {
  if (size > longest || (knows_all_ && last_.at(size) <= from)) return npos;
  for (std::size_t at = text_.find('`', from); at != npos;) {
    const std::size_t found = run_at(at).size();
    const std::size_t end = at + found;
    if (found <= longest) last_.at(found) = std::max(last_.at(found), end);
    if (found == size) return at;
    at = text_.find('`', end);
  }
  knows_all_ = true;
  return npos;
}

CodeSpan code_span_at(std::string_view text, std::size_t at, Backquotes& backquotes) {
  CodeSpan span;
  span.quotes = backquotes.run_at(at);
  const std::size_t begin = at + span.quotes.size();
  const std::size_t close = backquotes.find(span.quotes.size(), begin);
  if (close == npos) return span;
  const std::size_t end = close + span.quotes.size();
  span.whole = text.substr(at, end - at);
  span.content = text.substr(begin, close - begin);
  take_fence(span, text.substr(0, at), text.substr(end));
  return span;
}

void append_on_one_line(std::string& to, std::string_view code) {
  for (std::size_t at = 0; at < code.size();) {
    const std::size_t end = std::min(code.find('\n', at), code.size());
    std::string_view line = code.substr(at, end - at);
    if (end == code.size()) {
      to += line;
      return;
    }
    while (!line.empty() && text::is_blank(line.back())) line.remove_suffix(1);
    to.append(line).append(" ");
    at = std::min(code.find_first_not_of(" \t\n", end), code.size());
  }
}

}  // namespace registry_docs::markdown
