#include "registry_docs/markdown/tidy.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "registry_docs/markdown/align_table.h"
#include "registry_docs/markdown/fence.h"
#include "registry_docs/markdown/line.h"
#include "registry_docs/markdown/loosen.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

// What stands in place of a part of a text.
struct Edit {
  std::size_t begin;
  std::size_t end;
  std::string text = {};
};

// Finds what is not tidy in a text, line by line.
class Tidying {
 public:
  explicit Tidying(std::string_view text) : text_(text) {}

  // In order.
  std::vector<Edit> edits() && {
    for (std::size_t at = 0; at < text_.size();) {
      const std::size_t end = std::min(text_.find('\n', at), text_.size());
      take(line_between(at, end), at);
      at = end + 1;
    }
    end_table(text_.size());
    for (const std::size_t line : std::move(looseness_).lines_to_part()) {
      edits_.push_back({line, line, "\n"});
    }
    std::ranges::stable_sort(edits_, {}, &Edit::begin);
    return std::move(edits_);
  }

 private:
  [[nodiscard]] Line line_between(std::size_t begin, std::size_t end) const {
    const std::string_view whole = text_.substr(begin, end - begin);
    return {.whole = whole,
            .text = text::trimmed(whole, text::is_blank),
            .indent = indent_of(whole).columns};
  }

  void take(const Line& line, std::size_t at) {
    const bool is_code = fence_.has_value();
    if (is_code || !line.text.starts_with('|')) end_table(at);
    if (is_code) {
      looseness_.take_code();
      if (closes(line, *fence_)) fence_.reset();
      return;
    }
    fence_ = fence_of(line);
    looseness_.take(line, at);
    if (line.text.starts_with('|')) {
      rows_.push_back(line);
    } else if (line.whole.ends_with(' ') && !line.whole.ends_with("  ")) {
      // A single blank at the end says nothing; two end a line for the reader.
      edits_.push_back({at + line.whole.size() - 1, at + line.whole.size()});
    }
  }

  void end_table(std::size_t end) {
    if (rows_.empty()) return;
    Edit edit{static_cast<std::size_t>(rows_[0].whole.data() - text_.data()), end};
    append_table(edit.text, rows_);
    if (text_[end - 1] != '\n') edit.text.pop_back();
    edits_.push_back(std::move(edit));
    rows_.clear();
  }

  std::string_view text_;
  std::optional<Fence> fence_;
  std::vector<Line> rows_;  // of the table that the last lines are of
  Looseness looseness_;
  std::vector<Edit> edits_;
};

}  // namespace

void trim(std::string& text, std::size_t begin) {
  std::size_t end = begin;
  for (std::size_t at = text.find_first_not_of('\n', begin); at < text.size();) {
    const std::size_t gap = std::min(text.find("\n\n", at), text.size());
    std::copy(text.data() + at, text.data() + gap, text.data() + end);
    end += gap - at;
    at = std::min(text.find_first_not_of('\n', gap), text.size());
    if (at == text.size()) break;
    text[end++] = '\n';
    text[end++] = '\n';
  }
  text.resize(end);
  while (text.size() > begin && text.back() == '\n') text.pop_back();
}

void tidy(std::string& text, std::size_t begin) {
  trim(text, begin);
  const std::vector<Edit> edits = Tidying(std::string_view(text).substr(begin)).edits();
  if (edits.empty()) return;
  std::size_t taken = edits[0].begin;
  const std::string untidy(text, begin);
  text.resize(begin + taken);
  for (const Edit& edit : edits) {
    text.append(untidy, taken, edit.begin - taken).append(edit.text);
    taken = edit.end;
  }
  text.append(untidy, taken);
}

}  // namespace registry_docs::markdown
