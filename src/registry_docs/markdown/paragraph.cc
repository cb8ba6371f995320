#include "registry_docs/markdown/paragraph.h"

#include <algorithm>
#include <vector>

#include "registry_docs/markdown/prose.h"
#include "registry_docs/markdown/wrap.h"

namespace registry_docs::markdown {
namespace {

// How far a paragraph's lines are indented for the reader.
class Indents {
 public:
  explicit Indents(std::span<const Line> lines)
      : steps_{{std::ranges::min(lines, {}, &Line::indent).indent, 0}} {}

  // Of the next line that begins one for the reader; in columns.
  std::size_t shown(const Line& line) {
    // A wider one comes from the source that the text was taken from.
    constexpr std::size_t widest_step = 8;
    while (steps_.back().columns > line.indent) steps_.pop_back();
    const Step outer = steps_.back();
    const std::size_t step = line.indent - outer.columns;
    if (step != 0) {
      steps_.push_back({line.indent, outer.shown + (step <= widest_step ? step : 0)});
    }
    return steps_.back().shown;
  }

 private:
  struct Step {
    std::size_t columns;
    std::size_t shown;
  };
  std::vector<Step> steps_;
};

class Paragraph {
 public:
  // Borrows all of it.
  Paragraph(std::string& to, std::span<const Line> lines, std::string_view before)
      : to_(to), before_(before), lines_(lines), indents_(lines) {}

  void append() {
    for (;;) {
      const std::size_t count = count_of_joined();
      append_joined(lines_.first(count));
      lines_ = lines_.subspan(count);
      if (lines_.empty()) break;
      end_line("\\\n");
    }
  }

 private:
  // The number of lines among which a code span may reach from one to the next.
  [[nodiscard]] std::size_t count_of_joined() const {
    if (kind_of(lines_[0].text) == LineKind::whole) return 1;
    const auto end = std::find_if(lines_.begin() + 1, lines_.end(), [](const Line& line) {
      return kind_of(line.text) != LineKind::prose;
    });
    return static_cast<std::size_t>(end - lines_.begin());
  }

  void append_joined(std::span<const Line> lines) {
    const Line* head = lines.data();  // the reader's line begins with it
    const Line* line = head;
    const auto append_line_feed = [&](const char* line_feed) {
      while (line->whole.data() + line->whole.size() < line_feed) ++line;
      const Line& ended = *line++;
      if (is_wrapped(*head, ended, *line)) {
        end_line("\n");
      } else {
        end_line("\\\n");
        append_indent(*line);
        head = line;
      }
    };
    append_indent(*head);
    const char* const end = lines.back().text.data() + lines.back().text.size();
    append_prose(to_, {head->text.data(), end}, append_line_feed);
  }

  void end_line(std::string_view line_end) { to_.append(line_end).append(before_); }

  void append_indent(const Line& line) {
    constexpr std::size_t width = 2;  // of an em space, in columns
    for (std::size_t left = indents_.shown(line) / width; left != 0; --left) to_ += "&emsp;";
  }

  std::string& to_;
  std::string_view before_;
  std::span<const Line> lines_;
  Indents indents_;
};

}  // namespace

void append_paragraph(std::string& to, std::span<const Line> lines, std::string_view before) {
  Paragraph(to, lines, before).append();
}

}  // namespace registry_docs::markdown
