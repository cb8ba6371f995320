#include "registry_docs/markdown/tidy.h"

#include <algorithm>

#include "registry_docs/markdown/align_table.h"
#include "registry_docs/markdown/fence.h"
#include "registry_docs/markdown/line.h"
#include "registry_docs/markdown/loosen.h"
#include "text/ascii.h"

namespace registry_docs::markdown {
namespace {

std::vector<TidyLine> lines_in(std::string_view text) {
  std::vector<TidyLine> lines;
  lines.reserve(static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1);
  std::optional<Fence> fence;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const Line line{.whole = text.substr(0, end),
                    .text = text::trimmed(text.substr(0, end), text::is_blank),
                    .indent = indent_of(text.substr(0, end)).columns};
    TidyLine& taken = lines.emplace_back(TidyLine{.line = line, .is_code = fence.has_value()});
    if (!fence) {
      fence = fence_of(line);
    } else if (closes(line, *fence)) {
      fence.reset();
      taken.is_code = true;
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

// A single blank at the end says nothing; two end a line for the reader.
std::string_view without_last_blank(const TidyLine& line) {
  std::string_view whole = line.line.whole;
  if (!line.is_code && whole.ends_with(' ') && !whole.ends_with("  ")) whole.remove_suffix(1);
  return whole;
}

bool is_row(const TidyLine& line) { return !line.is_code && line.line.text.starts_with('|'); }

// The number of lines from the first on that are those of one table.
std::size_t table_size(std::span<const TidyLine> lines) {
  std::size_t size = 0;
  while (size < lines.size() && is_row(lines[size])) ++size;
  return size;
}

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
  const std::string untidy(text, begin);
  const std::vector<TidyLine> lines = lines_in(untidy);
  const std::vector<bool> is_parted = lines_to_part(lines);
  text.resize(begin);
  for (std::size_t at = 0; at < lines.size();) {
    if (is_parted[at]) text += '\n';
    const std::size_t rows = table_size(std::span(lines).subspan(at));
    if (rows == 0) {
      text.append(without_last_blank(lines[at++])).append("\n");
      continue;
    }
    append_table(text, std::span(lines).subspan(at, rows));
    at += rows;
  }
  if (text.size() > begin) text.pop_back();
}

}  // namespace registry_docs::markdown
