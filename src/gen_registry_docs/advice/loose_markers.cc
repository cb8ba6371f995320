#include "gen_registry_docs/advice/loose_markers.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "registry_docs/blocks/fences.h"
#include "registry_docs/markers.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::advice {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::closing_marker;
using registry_docs::Comment;
using registry_docs::FileReport;
using registry_docs::Marker;
using registry_docs::opening_marker;
using Names = std::unordered_set<std::string_view>;

Names missing_names(const FileReport& file) {
  Names names;
  for (const BlockReport& block : file.blocks) {
    if (block.state == BlockState::missing) names.insert(block.name);
  }
  return names;
}

// What is wrong with an opening marker outside all blocks, before `rest`.
std::string opening_fault(std::string_view name, std::string_view rest,
                          const Comment& comment) {
  const std::string_view behind = rest.substr(0, rest.find('\n'));
  if (!behind.empty()) {
    const bool is_blank = registry_docs::strip(behind).empty();
    return "the line must end with the opening marker of " + std::string(name) +
           (is_blank ? "; remove the blank after it"
                     : "; move the text after it to the next line");
  }
  return std::string(name) + " is opened and never closed; add " +
         closing_marker(name, comment) + " where it ends";
}

std::string closing_fault(std::string_view name, const Comment& comment) {
  return std::string(name) + " is closed and was not opened; add " +
         opening_marker(name, comment) + ", on a line of its own, where it begins";
}

std::string inner_fault(std::string_view name, const BlockReport& around) {
  return "the marker of " + std::string(name) + " stands within " + around.name +
         ", which begins at line " + std::to_string(around.line) + "; move it out";
}

// Walks over the markers and the blocks of a text at once.
class Walk {
 public:
  Walk(const FileReport& file, text::Guesses& guesses)
      : file_(file),
        missing_(missing_names(file)),
        declared_(file.declared.begin(), file.declared.end()),
        guesses_(guesses),
        next_(file.blocks.begin()) {}

  // What is wrong with the marker, if anything; its line is still to be set.
  std::optional<LooseMarker> look_at(const Marker& marker) {
    while (next_ != file_.blocks.end() && next_->line != 0 && next_->end < marker.begin)
      ++next_;
    const bool is_before_block = next_ != file_.blocks.end() && next_->line != 0;
    if (is_before_block && (marker.begin == next_->end || marker.end + 1 == next_->begin)) {
      return std::nullopt;  // the block's own
    }
    const bool is_inside = is_before_block && marker.begin >= next_->begin;
    if (!declared_.contains(marker.name)) {
      return is_inside ? std::nullopt : misspelt(marker);
    }
    if (!missing_.contains(marker.name)) return std::nullopt;
    return is_inside ? LooseMarker{marker.name, 0, inner_fault(marker.name, *next_)}
                     : half(marker);
  }

 private:
  std::optional<LooseMarker> misspelt(const Marker& marker) {
    const std::string_view meant = guesses_.take(marker.name);
    if (meant.empty()) return std::nullopt;
    return LooseMarker{meant, 0,
                       std::string(marker.name) + " is no block of this file; perhaps " +
                           std::string(meant) + " is meant",
                       true};
  }

  std::optional<LooseMarker> half(const Marker& marker) {
    if (marker.kind == Marker::Kind::opening) {
      opened_.insert(marker.name);
      const std::string_view rest = std::string_view(file_.text).substr(marker.end);
      return LooseMarker{marker.name, 0,
                         opening_fault(marker.name, rest, file_.syntax.comment)};
    }
    if (opened_.contains(marker.name)) return std::nullopt;  // its opening marker is at fault
    return LooseMarker{marker.name, 0, closing_fault(marker.name, file_.syntax.comment)};
  }

  const FileReport& file_;
  Names missing_;
  Names declared_;
  Names opened_;
  text::Guesses& guesses_;
  std::vector<BlockReport>::const_iterator next_;
};

// The fenced code of a file, outside its blocks, from its beginning to its end.
class Examples {
 public:
  explicit Examples(const FileReport& file)
      : file_(file), fences_(file.text), next_(file.blocks.begin()) {}

  // Whether an example stands there, and no marker.
  bool hold(std::size_t at) {
    if (!file_.syntax.is_markdown) return false;
    for (; next_ != file_.blocks.end() && next_->line != 0 && next_->begin <= at; ++next_) {
      if (at < next_->end) return false;
      fences_.hold(next_->begin - 1);
      fences_.skip_to(next_->end);
    }
    return fences_.hold(at);
  }

 private:
  const FileReport& file_;
  registry_docs::blocks::Fences fences_;
  std::vector<BlockReport>::const_iterator next_;
};

void add_markers(std::vector<LooseMarker>& found, const FileReport& file,
                 text::Guesses& guesses) {
  const std::string_view text = file.text;
  registry_docs::LineCounter lines(text);
  Walk walk(file, guesses);
  Examples examples(file);
  const Comment& comment = file.syntax.comment;
  for (auto marker = registry_docs::find_marker(text, 0, comment); marker;
       marker = registry_docs::find_marker(text, marker->end, comment)) {
    if (examples.hold(marker->begin)) continue;
    if (auto loose = walk.look_at(*marker)) {
      loose->line = lines.line_of(text.data() + marker->begin);
      found.push_back(*std::move(loose));
    }
  }
}

// Adds the comments that are almost markers of missing blocks.
void add_careless_ones(std::vector<LooseMarker>& found, const FileReport& file) {
  const std::string_view text = file.text;
  const Names missing = missing_names(file);
  registry_docs::LineCounter lines(text);
  Examples examples(file);
  const Comment& comment = file.syntax.comment;
  for (auto marker = registry_docs::find_careless_marker(text, 0, comment); marker;
       marker = registry_docs::find_careless_marker(text, marker->begin + 1, comment)) {
    if (examples.hold(marker->begin) || !missing.contains(marker->name)) continue;
    const bool is_closing = marker->kind == Marker::Kind::closing;
    found.push_back({marker->name, lines.line_of(text.data() + marker->begin),
                     "this is almost a marker of " + std::string(marker->name) + "; write " +
                         (is_closing ? closing_marker(marker->name, comment)
                                     : opening_marker(marker->name, comment)),
                     true});
  }
}

}  // namespace

std::vector<LooseMarker> loose_markers(const FileReport& file, text::Guesses& guesses) {
  std::vector<LooseMarker> found;
  add_markers(found, file, guesses);
  add_careless_ones(found, file);
  Names misspelt;
  for (const LooseMarker& marker : found) {
    if (marker.is_misspelt) misspelt.insert(marker.name);
  }
  std::erase_if(found, [&misspelt](const LooseMarker& marker) {
    return !marker.is_misspelt && misspelt.contains(marker.name);
  });
  std::ranges::stable_sort(found, {}, &LooseMarker::line);
  return found;
}

}  // namespace gen_registry_docs::advice
