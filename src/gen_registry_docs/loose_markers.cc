#include "gen_registry_docs/loose_markers.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "gen_registry_docs/markers_of.h"
#include "registry_docs/markers.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using registry_docs::Marker;
using Names = std::unordered_set<std::string_view>;

Names missing_names(const FileReport& file) {
  Names names;
  for (const BlockReport& block : file.blocks) {
    if (block.state == BlockState::missing) names.insert(block.name);
  }
  return names;
}

// What is wrong with an opening marker outside all blocks, before `rest`.
std::string opening_fault(std::string_view name, std::string_view rest) {
  const std::string_view behind = rest.substr(0, rest.find('\n'));
  if (!behind.empty()) {
    const bool is_blank = registry_docs::strip(behind).empty();
    return "the line must end with the opening marker of " + std::string(name) +
           "; take away the " + (is_blank ? "blank" : "text") + " behind it";
  }
  return std::string(name) + " is opened and never closed; add " + closing_marker(name) +
         " where it shall end";
}

std::string closing_fault(std::string_view name) {
  return std::string(name) + " is closed and was not opened; add " + opening_marker(name) +
         ", on a line of its own, where it shall begin";
}

std::string inner_fault(std::string_view name, const BlockReport& around) {
  return "the marker of " + std::string(name) + " stands within " + around.name +
         ", which begins at line " + std::to_string(around.line) + "; move it out";
}

// Walks over the markers and the blocks of a text at once.
class Walk {
 public:
  explicit Walk(const FileReport& file)
      : text_(file.text), missing_(missing_names(file)), next_(file.blocks.begin()) {
    const auto is_missing = [](const BlockReport& block) { return block.line == 0; };
    end_ = std::ranges::find_if(file.blocks, is_missing);
  }

  // What is wrong with the marker, if anything.
  std::optional<std::string> fault(const Marker& marker) {
    while (next_ != end_ && next_->end < marker.begin) ++next_;
    if (next_ != end_ && (marker.begin == next_->end || marker.end + 1 == next_->begin)) {
      return std::nullopt;  // the block's own
    }
    if (next_ != end_ && marker.begin >= next_->begin) {
      if (!missing_.contains(marker.name)) return std::nullopt;
      return inner_fault(marker.name, *next_);
    }
    if (marker.kind == Marker::Kind::opening) {
      opened_.insert(marker.name);
      return opening_fault(marker.name, text_.substr(marker.end));
    }
    if (opened_.contains(marker.name)) return std::nullopt;  // its opening marker is at fault
    return closing_fault(marker.name);
  }

 private:
  std::string_view text_;
  Names missing_;
  Names opened_;
  std::vector<BlockReport>::const_iterator next_;
  std::vector<BlockReport>::const_iterator end_;
};

void add_markers(std::vector<LooseMarker>& found, const FileReport& file) {
  const std::string_view text = file.text;
  registry_docs::LineCounter lines(text);
  Walk walk(file);
  for (auto marker = registry_docs::find_marker(text, 0); marker;
       marker = registry_docs::find_marker(text, marker->end)) {
    if (auto fault = walk.fault(*marker)) {
      const std::size_t line = lines.line_of(text.data() + marker->begin);
      found.push_back({marker->name, line, *std::move(fault)});
    }
  }
}

// The name that a comment, without its delimiters, would have as a marker written carelessly.
std::string_view careless_name(std::string_view inside) {
  inside = registry_docs::strip(inside);
  if (inside.starts_with('/')) inside = registry_docs::strip(inside.substr(1));
  constexpr std::string_view keyword = "registry";
  if (!inside.starts_with(keyword)) return {};
  inside = registry_docs::strip(inside.substr(keyword.size()));
  if (!inside.starts_with(':')) return {};
  return registry_docs::strip(inside.substr(1));
}

// Adds the comments that are almost markers of missing blocks.
void add_careless_ones(std::vector<LooseMarker>& found, const FileReport& file) {
  constexpr std::string_view open = "<!--";
  constexpr std::size_t longest = 500;  // so that a text full of openings takes no longer
  const std::string_view text = file.text;
  const Names missing = missing_names(file);
  registry_docs::LineCounter lines(text);
  for (std::size_t at = text.find(open); at != std::string_view::npos;
       at = text.find(open, at + 1)) {
    const std::string_view comment = text.substr(at, longest);
    const std::size_t end = comment.find("-->");
    if (end == std::string_view::npos ||
        registry_docs::find_marker(comment.substr(0, end + 3), 0)) {
      continue;
    }
    const std::string_view inside = comment.substr(open.size(), end - open.size());
    const std::string_view name = careless_name(inside);
    if (!missing.contains(name)) continue;
    const bool is_closing = registry_docs::strip(inside).starts_with('/');
    found.push_back({name, lines.line_of(text.data() + at),
                     "this is almost a marker of " + std::string(name) + "; write " +
                         (is_closing ? closing_marker(name) : opening_marker(name))});
  }
}

}  // namespace

std::vector<LooseMarker> loose_markers(const FileReport& file) {
  std::vector<LooseMarker> found;
  add_markers(found, file);
  add_careless_ones(found, file);
  std::ranges::stable_sort(found, {}, &LooseMarker::line);
  return found;
}

}  // namespace gen_registry_docs
