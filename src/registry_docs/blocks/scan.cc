#include "registry_docs/blocks/scan.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "registry_docs/blocks/fences.h"
#include "registry_docs/markers.h"
#include "registry_docs/registry_docs.h"

namespace registry_docs {
namespace blocks {
namespace {

// A text of the first host's kind.
struct PlainText {
  std::string_view text;

  [[nodiscard]] std::optional<Marker> find(std::size_t from) const {
    return find_marker(text, from);
  }
  static bool is_example(const Marker&) { return false; }
  static void pass(const Marker&) {}
};

// A text of any syntax.
struct SyntaxText {
  std::string_view text;
  const Syntax& syntax;
  std::optional<Fences> fences = {};

  [[nodiscard]] std::optional<Marker> find(std::size_t from) const {
    return find_marker(text, from, syntax.comment);
  }
  bool is_example(const Marker& marker) { return fences && fences->hold(marker.begin); }
  void pass(const Marker& closing) {
    if (fences) fences->skip_to(closing.begin);
  }
};

// Finds closing markers by name, wherever they stand. Most texts never need it: a block
// without a marker in its body is closed by the very next one. Where it is needed, one
// pass over the rest of the text serves every later search; a search of its own for each
// opening marker without a partner would be quadratic.
template <typename Source>
class ClosingMarkers {
 public:
  explicit ClosingMarkers(const Source& source) : source_(source) {}

  // The first one of that name at or after `from`, which never decreases between calls.
  std::optional<Marker> find(std::string_view name, std::size_t from) {
    if (!by_name_) collect(from);
    const auto found = by_name_->find(name);
    if (found == by_name_->end()) return std::nullopt;
    const std::vector<Marker>& markers = found->second;
    const auto next = std::ranges::lower_bound(markers, from, {}, &Marker::begin);
    if (next == markers.end()) return std::nullopt;
    return *next;
  }

 private:
  void collect(std::size_t from) {
    by_name_.emplace();
    for (auto marker = source_.find(from); marker; marker = source_.find(marker->end)) {
      if (marker->kind == Marker::Kind::closing) (*by_name_)[marker->name].push_back(*marker);
    }
  }

  const Source& source_;
  std::optional<std::unordered_map<std::string_view, std::vector<Marker>>> by_name_;
};

// What a block and the text before it take up, at the least and about. Room for all of them at
// once saves a third of the time of a scan of 100 MB with 100,000 blocks; room that is not
// needed costs nothing.
constexpr std::size_t bytes_per_block = 512;

bool opens_a_block(std::string_view text, const Marker& marker) {
  return marker.kind == Marker::Kind::opening && text.substr(marker.end).starts_with('\n');
}

bool closes(const std::optional<Marker>& marker, std::string_view name) {
  return marker && marker->kind == Marker::Kind::closing && marker->name == name;
}

Block block_between(std::string_view text, const Marker& opening, const Marker& closing) {
  const std::size_t body = opening.end + 1;
  return {.open = text.substr(opening.begin, body - opening.begin),
          .name = opening.name,
          .body = text.substr(body, closing.begin - body),
          .close = text.substr(closing.begin, closing.end - closing.begin)};
}

template <typename Source>
std::vector<Block> scan_source(Source source) {
  const std::string_view text = source.text;
  std::vector<Block> found;
  found.reserve(text.size() / bytes_per_block);
  ClosingMarkers<Source> closing_markers(source);
  std::optional<Marker> marker = source.find(0);
  while (marker) {
    const std::optional<Marker> next = source.find(marker->end);
    if (!opens_a_block(text, *marker) || source.is_example(*marker)) {
      marker = next;
      continue;
    }
    const auto closing =
        closes(next, marker->name) ? next : closing_markers.find(marker->name, marker->end);
    if (!closing) {
      marker = next;
      continue;
    }
    found.push_back(block_between(text, *marker, *closing));
    source.pass(*closing);
    marker = source.find(closing->end);
  }
  return found;
}

}  // namespace

std::vector<Block> scan(std::string_view text) { return scan_source(PlainText{text}); }

std::vector<Block> scan(std::string_view text, const Syntax& syntax) {
  if (syntax.comment == Comment() && !syntax.is_markdown) return scan(text);
  SyntaxText source{.text = text, .syntax = syntax};
  if (syntax.is_markdown) source.fences.emplace(text);
  return scan_source(std::move(source));
}

std::vector<std::pair<std::string_view, std::string_view>> blocks(std::string_view text,
                                                                  const Syntax& syntax) {
  std::vector<std::pair<std::string_view, std::string_view>> bodies;
  std::unordered_map<std::string_view, std::size_t> places;
  for (const Block& block : scan(text, syntax)) {
    const auto [place, is_new] = places.try_emplace(block.name, bodies.size());
    if (is_new) {
      bodies.emplace_back(block.name, block.body);
    } else {
      bodies[place->second].second = block.body;
    }
  }
  return bodies;
}

}  // namespace blocks

std::vector<std::string_view> block_names(std::string_view text) {
  std::vector<std::string_view> names;
  for (const blocks::Block& block : blocks::scan(text)) names.push_back(block.name);
  return names;
}

}  // namespace registry_docs
