#include "registry_docs/markdown/prose.h"

#include <algorithm>
#include <array>
#include <utility>

#include "registry_docs/markdown/address.h"
#include "registry_docs/markdown/code_span.h"
#include "registry_docs/markdown/escapes.h"
#include "registry_docs/markdown/markers_in.h"
#include "registry_docs/markdown/safe.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;

enum class Code { spans, none };

// By byte: whether it may ever be written otherwise than it is, but at a line's beginning.
constexpr std::array<bool, 256> make_special() {
  std::array<bool, 256> special{};
  for (const char c : std::string_view(" \t\n\\`*_~[]<!&#:.")) {
    special[static_cast<unsigned char>(c)] = true;
  }
  return special;
}
constexpr std::array<bool, 256> special = make_special();

// By byte: whether it is ASCII to be seen, and none of those.
constexpr auto is_plain_anywhere = [] {
  std::array<bool, 256> is_plain{};
  for (std::size_t c = ' '; c <= '~'; ++c) is_plain[c] = !special[c];
  return is_plain;
}();

// Whether it is clear that the character at `at` is written as it is, unless it begins a
// block.
bool is_plain(std::string_view text, std::size_t at) {
  const auto next_is = [&](char c) { return at + 1 < text.size() && text[at + 1] == c; };
  if (!special[static_cast<unsigned char>(text[at])]) return true;
  switch (text[at]) {
    case ' ':
      return at + 1 < text.size() && !text::is_blank_or_line_feed(text[at + 1]);
    case '.':
      return at == 0 || text[at - 1] != 'w';
    case ':':
      return !next_is('/');
    case '#':
      return at + 1 < text.size();
    default:
      return false;
  }
}

// Writes a text from its beginning to its end.
class Prose {
 public:
  Prose(std::string& to, std::string_view text, Code code, const EndLine& end_line)
      : to_(to), text_(text), end_line_(end_line), code_(code), backquotes_(text) {}

  void append() {
    begin_line();
    while (at_ < text_.size()) {
      append_plain();
      if (at_ < text_.size()) append_special();
    }
  }

 private:
  void begin_line() {
    const std::size_t end = end_line_ ? text_.find('\n', at_) : text_.size();
    const std::size_t found = find_block_start(text_.substr(at_, end - at_));
    block_start_ = found == npos ? npos : at_ + found;
  }

  void append_plain() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && at_ != block_start_ && is_plain(text_, at_)) ++at_;
    to_ += text_.substr(begin, at_ - begin);
  }

  void append_special() {
    if (at_ == block_start_) {
      append_character(true);
      return;
    }
    switch (text_[at_]) {
      case ' ':
      case '\t':
      case '\n':
        append_space();
        break;
      case '`':
        append_backquotes();
        break;
      case '\\':
        append_backslash();
        break;
      case '*':
      case '_':
      case '~':
        append_run();
        break;
      case ':':
        append_colon();
        break;
      case '.':
        append_character(at_ >= 3 && text_.substr(at_ - 3, 3) == "www");
        break;
      default:
        append_character(needs_escape(text_, at_));
    }
  }

  void append_character(bool is_escaped) {
    if (is_escaped) to_ += '\\';
    to_ += text_[at_++];
  }

  void append_space() {
    const char* line_feed = nullptr;
    for (; at_ < text_.size() && text::is_blank_or_line_feed(text_[at_]); ++at_) {
      if (text_[at_] == '\n') line_feed = &text_[at_];
    }
    if (line_feed == nullptr || !end_line_) {
      to_ += ' ';
    } else {
      end_line_(line_feed);
      begin_line();
    }
  }

  // A backquote that is escaped begins no span.
  void append_backslash() {
    append_character(needs_escape(text_, at_));
    const char next = at_ < text_.size() ? text_[at_] : '\0';
    if (next == '\\' || next == '`') append_character(true);
  }

  void append_backquotes() {
    const CodeSpan span =
        code_ == Code::spans ? code_span_at(text_, at_, backquotes_) : CodeSpan{};
    if (span.whole.empty()) {
      while (at_ < text_.size() && text_[at_] == '`') append_character(true);
      return;
    }
    append_span(to_, span);
    at_ += span.whole.size();
  }

  void append_run() {
    std::size_t end = at_;
    while (end < text_.size() && text_[end] == text_[at_]) ++end;
    const bool is_escaped =
        run_needs_escapes(text_, at_, end) || (text_[at_] == '*' && has_other_star(end));
    while (at_ < end) append_character(is_escaped);
  }

  // Linters take any two for emphasis, wherever they stand.
  bool has_other_star(std::size_t from) {
    return std::exchange(has_star_, true) || text_.find('*', from) != npos;
  }

  // GitHub makes a link of any address, and shows the backslashes in it.
  void append_colon() {
    const bool is_separator = text_.substr(at_).starts_with("://");
    const std::size_t scheme = is_separator ? scheme_size(text_, at_) : 0;
    if (scheme == 0) {
      append_character(false);
      return;
    }
    const std::size_t begin = at_ - scheme;
    const bool is_apart = begin == 0 || (text_[begin - 1] != '\\' && text_[begin - 1] != '_');
    const std::string_view address =
        is_apart ? leading_address(text_.substr(begin), scheme) : std::string_view{};
    if (address.empty()) {
      append_character(true);
      return;
    }
    to_.resize(to_.size() - scheme);
    append_address(to_, address);
    at_ = begin + address.size();
  }

  std::string& to_;
  std::string_view text_;
  const EndLine& end_line_;
  Code code_;
  Backquotes backquotes_;
  bool has_star_ = false;  // that stands apart
  std::size_t at_ = 0;
  std::size_t block_start_ = npos;  // of the line
};

// Of the blanks at the ends of a span, one at each is not shown.
std::string_view without_padding(std::string_view content) {
  const bool is_blank = content.find_first_not_of(' ') == npos;
  const bool is_padded = !is_blank && content.front() == ' ' && content.back() == ' ';
  return is_padded ? content.substr(1, content.size() - 2) : content;
}

}  // namespace

bool is_plain_line(std::string_view text) {
  if (text.empty() || !text::is_letter(text[0])) return false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (is_plain_anywhere[static_cast<unsigned char>(text[at])]) continue;
    if (text[at] < ' ' || text[at] > '~' || !is_plain(text, at)) return false;
  }
  return true;
}

void append_prose(std::string& to, std::string_view text, const EndLine& end_line) {
  Prose(to, text, Code::spans, end_line).append();
}

std::string shown_code(const CodeSpan& span) {
  std::string content;
  if (!span.is_fenced) {
    append_on_one_line(content, span.content);
    return std::string(without_padding(content));
  }
  append_on_one_line(content, text::trimmed(span.content, text::is_blank_or_line_feed));
  return content.empty() ? " " : content;
}

void append_span(std::string& to, const CodeSpan& span) {
  append_code_span(to, shown_code(span));
}

void append_code_element(std::string& to, std::string_view code, std::string_view bar) {
  to += "<code>";
  for (std::size_t at = 0; at <= code.size();) {
    const std::size_t end = std::min(code.find('|', at), code.size());
    Prose(to, code.substr(at, end - at), Code::none, {}).append();
    if (end < code.size()) to += bar;
    at = end + 1;
  }
  to += "</code>";
}

}  // namespace registry_docs::markdown
