#include "gen_registry_docs/advice/conflicts.h"

#include <algorithm>
#include <string_view>

#include "registry_docs/markers.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::advice {
namespace {

using registry_docs::BlockReport;

constexpr std::size_t npos = std::string_view::npos;

// Whether a conflict's own mark stands at `at`: seven signs, and a blank before its label.
bool is_mark(std::string_view text, std::size_t at, char sign) {
  constexpr std::size_t size = 7;
  if (text.substr(at, size).find_first_not_of(sign) != npos) return false;
  const std::string_view behind = text.substr(std::min(at + size, text.size()));
  return text.size() - at >= size && (behind.empty() || behind[0] == ' ' || behind[0] == '\n');
}

std::size_t next_line(std::string_view text, std::size_t at) {
  const std::size_t end = text.find('\n', at);
  return end == npos ? text.size() : end + 1;
}

// Where the last mark begins of the conflict whose first one begins at `at`, with those inside
// it; the text's end when it has none.
std::size_t conflict_end(std::string_view text, std::size_t at) {
  std::size_t depth = 1;
  for (at = next_line(text, at); at < text.size(); at = next_line(text, at)) {
    if (is_mark(text, at, '<')) ++depth;
    if (is_mark(text, at, '>') && --depth == 0) return at;
  }
  return text.size();
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

bool holds_a_marker(std::string_view text, std::size_t begin, std::size_t end,
                    const registry_docs::Comment& comment) {
  return registry_docs::find_marker(text.substr(0, end), begin, comment).has_value();
}

}  // namespace

std::vector<Conflict> conflicts_across_markers(std::string_view text,
                                               const std::vector<BlockReport>& blocks,
                                               const registry_docs::Comment& comment) {
  std::vector<Conflict> found;
  if (text.find("<<<<<<<") == npos) return found;
  registry_docs::LineCounter lines(text);
  for (std::size_t at = 0; at < text.size(); at = next_line(text, at)) {
    if (!is_mark(text, at, '<')) continue;
    const std::size_t end = conflict_end(text, at);
    if (holds_a_marker(text, at, end, comment) && !lies_within_a_block(blocks, at, end)) {
      const std::size_t line = lines.line_of(text.data() + at);
      const std::size_t last = std::min(end, text.size() - 1);
      found.push_back({line, lines.line_of(text.data() + last)});
    }
    at = end;
  }
  return found;
}

}  // namespace gen_registry_docs::advice
