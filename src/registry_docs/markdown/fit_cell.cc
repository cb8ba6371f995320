#include <algorithm>

#include "registry_docs/markdown/code_span.h"
#include "registry_docs/markdown/prose.h"
#include "registry_docs/markdown/safe.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

// A table's row is cut at its bars before anything else is read, code spans too.
void append_with_bars(std::string& to, std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t bar = std::min(text.find('|', at), text.size());
    to += text.substr(at, bar - at);
    if (bar < text.size()) to += "\\|";
    at = bar + 1;
  }
}

constexpr bool is_special(char c) { return c == '`' || c == '\\' || c == '\n'; }

// Writes Markdown, from its beginning to its end, as one line of a cell.
class Cell {
 public:
  Cell(std::string& to, std::string_view markdown)
      : to_(to), begin_(to.size()), text_(markdown), backquotes_(markdown) {}

  void append() {
    while (at_ < text_.size()) {
      const std::size_t begin = at_;
      while (at_ < text_.size() && !is_special(text_[at_])) ++at_;
      append_with_bars(to_, text_.substr(begin, at_ - begin));
      if (at_ < text_.size()) append_special();
    }
  }

 private:
  void append_special() {
    switch (text_[at_]) {
      case '`':
        append_backquotes();
        break;
      case '\n':
        append_line_feed();
        break;
      default:
        append_backslash();
    }
  }

  void append_backquotes() {
    const CodeSpan span = code_span_at(text_, at_, backquotes_);
    std::string line;
    if (!span.whole.empty()) append_span(line, span);
    // Readers are of two minds about a bar behind two backslashes.
    if (line.starts_with('`') && line.find("\\|") != std::string::npos) {
      append_code_element(to_, shown_code(span), "&#124;");
    } else {
      append_with_bars(to_, span.whole.empty() ? span.quotes : line);
    }
    at_ += std::max(span.whole.size(), span.quotes.size());
  }

  void append_line_feed() {
    while (to_.size() > begin_ && text::is_blank(to_.back())) to_.pop_back();
    to_ += ' ';
    at_ = std::min(text_.find_first_not_of(" \t\n", at_), text_.size());
  }

  // With the character that it escapes, but for a line feed, which it only makes a hard one.
  void append_backslash() {
    const bool is_before_line_feed = text_.substr(at_ + 1).starts_with('\n');
    const std::size_t size = is_before_line_feed ? 1 : 2;
    if (!is_before_line_feed) to_ += text_.substr(at_, size);
    at_ += size;
  }

  std::string& to_;
  std::size_t begin_;
  std::string_view text_;
  Backquotes backquotes_;
  std::size_t at_ = 0;
};

}  // namespace

void fit_cell(std::string& text, std::size_t begin) {
  const std::string markdown(text, begin);
  text.resize(begin);
  Cell(text, markdown).append();
}

}  // namespace registry_docs::markdown
