#include "gen_registry_docs/diff/unified_diff.h"

#include <algorithm>
#include <span>
#include <vector>

#include "gen_registry_docs/diff/line_edits.h"
#include "text/join.h"

namespace gen_registry_docs::diff {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;

constexpr std::size_t context = 3;

// A beginning of a line, in what stands and in what would be written.
struct Cut {
  std::size_t old_at;
  std::size_t new_at;
};

// Where the line begins that the byte at `at` stands in.
std::size_t line_begin(std::string_view text, std::size_t at) {
  return at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
}

// Where the lines of changed bodies begin, and end where a body ends with its line.
std::vector<Cut> cuts_of(const FileReport& file) {
  std::vector<Cut> cuts;
  Cut at{0, 0};
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::stale) continue;
    const std::size_t line = line_begin(file.text, block.begin);
    if (line > at.old_at) cuts.push_back({line, at.new_at + (line - at.old_at)});
    at = {block.end, at.new_at + (block.begin - at.old_at) + block.rendered.size()};
    if (line_begin(file.text, block.end) == block.end && block.rendered.ends_with('\n')) {
      cuts.push_back(at);
    }
  }
  return cuts;
}

// Both texts by lines, and what differs.
struct Comparison {
  std::vector<std::string_view> old_lines = {};
  std::vector<std::string_view> new_lines = {};
  std::vector<LineEdit> edits = {};
};

// Compares two parts that follow those compared before.
void compare_part(Comparison& all, std::string_view old_part, std::string_view new_part) {
  const std::size_t old_at = all.old_lines.size();
  const std::size_t new_at = all.new_lines.size();
  std::ranges::copy(lines_of(old_part), std::back_inserter(all.old_lines));
  std::ranges::copy(lines_of(new_part), std::back_inserter(all.new_lines));
  if (old_part == new_part) return;
  const auto old_lines = std::span(all.old_lines).subspan(old_at);
  const auto new_lines = std::span(all.new_lines).subspan(new_at);
  for (const LineEdit& edit : line_edits(old_lines, new_lines)) {
    all.edits.push_back({old_at + edit.old_begin, old_at + edit.old_end,
                         new_at + edit.new_begin, new_at + edit.new_end});
  }
}

Comparison compare(std::string_view old_text, std::string_view new_text,
                   std::span<const Cut> cuts) {
  Comparison all;
  Cut from{0, 0};
  const auto compare_to = [&](const Cut& to) {
    compare_part(all, old_text.substr(from.old_at, to.old_at - from.old_at),
                 new_text.substr(from.new_at, to.new_at - from.new_at));
    from = to;
  };
  std::ranges::for_each(cuts, compare_to);
  compare_to({old_text.size(), new_text.size()});
  return all;
}

// The edits that `edits` begins with and whose contexts touch.
std::span<const LineEdit> first_hunk(std::span<const LineEdit> edits) {
  std::size_t size = 1;
  while (size < edits.size() &&
         edits[size].old_begin - edits[size - 1].old_end <= 2 * context) {
    ++size;
  }
  return edits.first(size);
}

// The names of the blocks that a hunk changes.
std::string label(std::span<const LineEdit> hunk, std::span<const BlockReport> blocks) {
  std::vector<std::string_view> names;
  const auto first =
      std::ranges::upper_bound(blocks, hunk.front().old_begin, {}, &BlockReport::last_line);
  for (const BlockReport& block : std::span(first, blocks.end())) {
    if (block.line > hunk.back().old_end) break;
    const bool is_new = std::ranges::find(names, block.name) == names.end();
    if (block.state == BlockState::stale && is_new) names.emplace_back(block.name);
  }
  return text::join(names, ", ");
}

// Writes lines of a diff, each in its colour.
class Writer {
 public:
  explicit Writer(Colors colors) : is_colored_(colors == Colors::ansi) {}

  void header(const std::string& line) { add("\x1b[1m", line); }
  void hunk(const std::string& line) { add("\x1b[36m", line); }
  void removed(std::string_view line) { add_marked("\x1b[31m", '-', line); }
  void added(std::string_view line) { add_marked("\x1b[32m", '+', line); }
  void kept(std::string_view line) { add_marked("", ' ', line); }

  std::string finish() { return std::move(text_); }

 private:
  void add(std::string_view color, std::string_view line) {
    const bool is_colored = is_colored_ && !color.empty();
    if (is_colored) text_ += color;
    text_ += line;
    text_ += is_colored ? "\x1b[m\n" : "\n";
  }

  void add_marked(std::string_view color, char mark, std::string_view line) {
    const bool is_whole = line.ends_with('\n');
    if (is_whole) line.remove_suffix(1);
    add(color, mark + std::string(line));
    if (!is_whole) text_ += "\\ No newline at end of file\n";
  }

  bool is_colored_;
  std::string text_;
};

std::string range(std::size_t begin, std::size_t end) {
  const std::size_t first = begin == end ? begin : begin + 1;  // none: the line before it
  return std::to_string(first) + "," + std::to_string(end - begin);
}

void write_hunk(Writer& to, const Comparison& all, std::span<const LineEdit> hunk,
                const std::string& name) {
  const LineEdit& first = hunk.front();
  const LineEdit& last = hunk.back();
  const std::size_t before = std::min(context, first.old_begin);
  const std::size_t after = std::min(context, all.old_lines.size() - last.old_end);
  to.hunk("@@ -" + range(first.old_begin - before, last.old_end + after) + " +" +
          range(first.new_begin - before, last.new_end + after) + " @@" +
          (name.empty() ? "" : " " + name));
  std::size_t at = first.old_begin - before;
  for (const LineEdit& edit : hunk) {
    while (at < edit.old_begin) to.kept(all.old_lines[at++]);
    while (at < edit.old_end) to.removed(all.old_lines[at++]);
    for (std::size_t i = edit.new_begin; i < edit.new_end; ++i) to.added(all.new_lines[i]);
  }
  while (at < last.old_end + after) to.kept(all.old_lines[at++]);
}

}  // namespace

std::string unified_diff(const FileReport& file, std::string_view bytes, Colors colors) {
  const std::string text = registry_docs::new_bytes(file);
  const bool has_line_feeds = bytes == file.text;
  const Comparison all =
      compare(bytes, text, has_line_feeds ? cuts_of(file) : std::vector<Cut>());
  Writer diff(colors);
  diff.header("--- a/" + file.path);
  diff.header("+++ b/" + file.path);
  for (std::span<const LineEdit> rest = all.edits; !rest.empty();) {
    const std::span<const LineEdit> hunk = first_hunk(rest);
    write_hunk(diff, all, hunk, label(hunk, file.blocks));
    rest = rest.subspan(hunk.size());
  }
  return diff.finish();
}

}  // namespace gen_registry_docs::diff
