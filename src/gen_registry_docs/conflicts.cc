#include "gen_registry_docs/conflicts.h"

#include <algorithm>
#include <string_view>

#include "registry_docs/markers.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

using registry_docs::BlockReport;

// Where a line that begins with `mark` begins, at or after `from`, or npos.
std::size_t find_line(std::string_view text, std::string_view mark, std::size_t from) {
  std::size_t at = text.find(mark, from);
  while (at != std::string_view::npos && at != 0 && text[at - 1] != '\n') {
    at = text.find(mark, at + 1);
  }
  return at;
}

// `blocks` in the order of the text, then the missing ones.
bool lies_within_a_block(const std::vector<BlockReport>& blocks, std::size_t begin,
                         std::size_t end) {
  const auto is_before = [begin](const BlockReport& block) {
    return block.line != 0 && block.end <= begin;
  };
  const auto block = std::ranges::partition_point(blocks, is_before);
  return block != blocks.end() && block->begin <= begin && end < block->end;
}

bool holds_a_marker(std::string_view text, std::size_t begin, std::size_t end) {
  return registry_docs::find_marker(text.substr(0, end), begin).has_value();
}

}  // namespace

std::vector<Conflict> conflicts_across_markers(const registry_docs::FileReport& file) {
  const std::string_view text = file.text;
  std::vector<Conflict> found;
  registry_docs::LineCounter lines(text);
  for (std::size_t begin = find_line(text, "<<<<<<< ", 0); begin != std::string_view::npos;) {
    const std::size_t end = find_line(text, ">>>>>>> ", begin);
    if (end == std::string_view::npos) break;
    if (holds_a_marker(text, begin, end) && !lies_within_a_block(file.blocks, begin, end)) {
      const std::size_t line = lines.line_of(text.data() + begin);
      found.push_back({line, lines.line_of(text.data() + end)});
    }
    begin = find_line(text, "<<<<<<< ", end);
  }
  return found;
}

}  // namespace gen_registry_docs
