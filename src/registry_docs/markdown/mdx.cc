#include "registry_docs/markdown/mdx.h"

#include <algorithm>
#include <string_view>

#include "registry_docs/markdown/code_span.h"
#include "registry_docs/markdown/fence.h"
#include "registry_docs/markdown/line.h"
#include "registry_docs/markdown/markers_in.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::string_view comment_of_mdx = "{/*";
constexpr std::string_view pre = "<pre><code>";
constexpr std::string_view pre_end = "</code></pre>";

bool is_punctuation(char c) { return c > ' ' && c <= '~' && !text::is_letter_or_digit(c); }

void append_entity(std::string& to, char c) {
  to.append("&#").append(std::to_string(static_cast<int>(c))).append(";");
}

// Code that no Markdown is read in.
void append_entities(std::string& to, std::string_view code) {
  for (const char c : code) {
    if (is_punctuation(c) || c == '\n') {
      append_entity(to, c);
    } else {
      to += c;
    }
  }
}

// Shows an address and leads to it.
void append_link(std::string& to, std::string_view address) {
  to += '[';
  for (const char c : address) {
    if (std::string_view(":*_~[]{}!").find(c) != npos) to += '\\';
    to += c;
  }
  to += "](";
  for (const char c : address) {
    switch (c) {
      case '(':
        to += "%28";
        break;
      case ')':
        to += "%29";
        break;
      case '{':
        to += "%7B";
        break;
      case '}':
        to += "%7D";
        break;
      default:
        to += c;
    }
  }
  to += ')';
}

// Writes safe Markdown, from its beginning to its end.
class Mdx {
 public:
  Mdx(std::string& to, std::string_view markdown)
      : to_(to), text_(markdown), backquotes_(markdown) {}

  void append() {
    while (at_ < text_.size()) {
      if (to_.empty() || to_.back() == '\n') begin_line();
      if (at_ < text_.size()) append_next();
    }
  }

 private:
  // What is special where a line begins: a fence, and what could be code.
  void begin_line() {
    const std::size_t begin = std::min(text_.find_first_not_of(" \t", at_), text_.size());
    to_ += text_.substr(at_, begin - at_);
    at_ = begin;
    const std::string_view rest = text_.substr(at_);
    if (rest.starts_with("import") || rest.starts_with("export")) {
      append_entity(to_, text_[at_++]);
    } else if (rest.starts_with("```")) {
      append_fence();
    }
  }

  void append_fence() {
    const std::string_view marks = backquotes_.run_at(at_);
    const std::size_t line_end = text_.find('\n', at_);
    const std::size_t info = at_ + marks.size();
    if (line_end == npos || text_.substr(info, line_end - info).find('`') != npos) return;
    const std::size_t end = end_of_fence(marks, line_end);
    const std::string_view block = text_.substr(at_, end - at_);
    const std::size_t margin = at_ - (text_.rfind('\n', at_) + 1);
    if (has_marker(block, comment_of_mdx)) {
      append_element(text_.substr(line_end + 1, last_line_ - line_end - 1), margin);
    } else {
      to_ += block;
    }
    at_ = end;
  }

  // Where the line ends that closes the block; `last_line_` is where it begins.
  std::size_t end_of_fence(std::string_view marks, std::size_t line_end) {
    while (line_end < text_.size()) {
      last_line_ = line_end + 1;
      line_end = std::min(text_.find('\n', last_line_), text_.size());
      const std::string_view line = text_.substr(last_line_, line_end - last_line_);
      if (text::trimmed(line, text::is_blank) == marks) return line_end;
    }
    return text_.size();
  }

  void append_element(std::string_view code, std::size_t margin) {
    to_ += pre;
    while (!code.empty()) {
      const std::size_t end = std::min(code.find('\n'), code.size() - 1) + 1;
      const std::string_view line = code.substr(0, end);
      append_entities(to_, line.substr(indent_of(line, margin).size));
      code.remove_prefix(end);
    }
    to_ += pre_end;
  }

  void append_next() {
    switch (text_[at_]) {
      case '\\':  // with what it escapes, but for the end of a line
        to_ += text_[at_++];
        if (at_ < text_.size() && text_[at_] != '\n') to_ += text_[at_++];
        break;
      case '`':
        append_span();
        break;
      case '<':
        append_angle();
        break;
      case '{':
      case '}':
        to_ += '\\';
        [[fallthrough]];
      default:
        to_ += text_[at_++];
    }
  }

  void append_span() {
    const CodeSpan span = code_span_at(text_, at_, backquotes_);
    const std::string_view whole = span.whole.empty() ? span.quotes : span.whole;
    if (!span.whole.empty() && has_marker(span.content, comment_of_mdx)) {
      to_ += "<code>";
      append_entities(to_, text::trimmed(span.content, text::is_blank));
      to_ += "</code>";
    } else {
      to_ += whole;
    }
    at_ += whole.size();
  }

  void append_angle() {
    const std::string_view rest = text_.substr(at_);
    if (rest.starts_with(pre)) return append_pre(rest);
    for (const std::string_view tag : {"<code>", "</code>"}) {
      if (!rest.starts_with(tag)) continue;
      to_ += tag;
      at_ += tag.size();
      return;
    }
    const std::size_t end = rest.find('>');
    if (rest.size() < 2 || !text::is_letter(rest[1]) || end == npos) {
      to_ += "\\<";
      ++at_;
      return;
    }
    append_link(to_, rest.substr(1, end - 1));
    at_ += end + 1;
  }

  // Within it nothing is Markdown yet.
  void append_pre(std::string_view rest) {
    const std::size_t end = rest.find(pre_end);
    to_ += pre;
    for (std::size_t at = pre.size(); at < end; ++at) {
      const std::size_t entity = rest[at] == '&' ? rest.find(';', at) + 1 : at;
      to_ += rest.substr(at, entity - at);
      if (entity == at) append_entities(to_, rest.substr(at, 1));
      at = std::max(at, entity - 1);
    }
    to_ += pre_end;
    at_ += end + pre_end.size();
  }

  std::string& to_;
  std::string_view text_;
  Backquotes backquotes_;
  std::size_t at_ = 0;
  std::size_t last_line_ = 0;
};

}  // namespace

void make_mdx(std::string& text, std::size_t begin) {
  const std::string markdown(text, begin);
  text.resize(begin);
  Mdx(text, markdown).append();
}

void make_mdx_element(std::string& text, std::size_t begin) {
  const std::string html(text, begin);
  text.resize(begin);
  for (const char c : html) {
    if (c == '{' || c == '}') {
      append_entity(text, c);
    } else {
      text += c;
    }
  }
}

}  // namespace registry_docs::markdown
