#include "gen_registry_docs/init/mark_files.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <string_view>
#include <utility>

#include "gen_registry_docs/init/headings.h"
#include "gen_registry_docs/init/live_lines.h"
#include "gen_registry_docs/init/place.h"
#include "registry/syntax.h"
#include "registry_docs/errors.h"
#include "registry_docs/markers.h"
#include "registry_docs/text.h"
#include "text/join.h"
#include "text/line_endings.h"
#include "text/nearest.h"

namespace gen_registry_docs::init {
namespace {

namespace fs = std::filesystem;
using registry::Language;
using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using registry_docs::InputError;

// Blocks that stand in one place, one behind the other.
struct Addition {
  Place place;
  std::vector<std::string_view> names;
};

FileReport read(const fs::path& root, const std::string& path,
                const registry_docs::Syntax& syntax) {
  FileReport file{.path = path, .state = registry_docs::FileState::stale, .syntax = syntax};
  const fs::path whole = root / path;
  if (fs::exists(fs::symlink_status(whole))) {
    file.bytes = registry_docs::read_bytes(whole, registry_docs::FileKind::regular);
    if (const auto at = registry_docs::find_ill_formed(file.bytes)) {
      throw registry_docs::DecodeError(whole.string(), *at);
    }
    file.text = text::with_line_feeds(file.bytes);
    return file;
  }
  if (!whole.parent_path().empty() && !fs::is_directory(whole.parent_path())) {
    throw InputError(whole.string() + ": expected its directory to be there, found none");
  }
  file.is_new = true;
  return file;
}

// One file on its way.
class Marking {
 public:
  Marking(const fs::path& root, const std::string& path)
      : name_((root / path).string()),
        syntax_(registry::syntax_of(path, std::nullopt)),
        file_(read(root, path, syntax_.file)),
        lines_(live_lines(file_.text, syntax_.file)),
        headings_(headings_of(lines_)) {}
  Marking(const Marking&) = delete;  // the lines borrow from the file
  Marking& operator=(const Marking&) = delete;
  ~Marking() = default;

  [[nodiscard]] const std::string& path() const { return file_.path; }

  void add(const Wanted& wanted) {
    require_fitting(wanted);
    require_unmarked(wanted.layout);
    const Place place = wanted.heading ? place_below(heading(*wanted.heading), file_.text)
                                       : place_at_end(file_.text);
    const auto same = std::ranges::find_if(additions_, [&](const Addition& each) {
      return each.place.begin == place.begin && each.place.end == place.end;
    });
    if (same == additions_.end()) {
      additions_.push_back({place, {wanted.layout}});
    } else {
      same->names.push_back(wanted.layout);
    }
    blocks_.push_back({wanted.layout, place.level});
  }

  // The file, of which nothing is left here.
  MarkedFile finish() {
    std::ranges::sort(additions_, {}, [](const Addition& each) {
      return std::pair(each.place.begin, each.place.end);
    });
    const std::size_t before = registry_docs::blocks_of(file_.text, syntax_.file).size();
    for (const Addition& each : additions_) file_.blocks.push_back(report_of(each));
    require_blocks(before);
    return {std::move(file_), std::move(blocks_)};
  }

 private:
  [[noreturn]] void refuse(const std::string& expected, const std::string& found) const {
    throw InputError(name_ + ": expected " + expected + ", found " + found);
  }

  // The program's own layouts, but for a number, are Markdown.
  void require_fitting(const Wanted& wanted) const {
    if (syntax_.file.is_markdown) return;
    if (syntax_.language != Language::html) {
      refuse("the name of a file of Markdown or HTML",
             "another; registry-docs.json can declare such a file with its comments");
    }
    if (wanted.layout != "count") refuse("the layout count in HTML", wanted.layout);
    if (wanted.heading) refuse("Markdown, whose headings --heading names", "HTML");
  }

  void require_unmarked(std::string_view block) const {
    const auto is_of_block = [&](const LiveLine& line) {
      const auto marker = registry_docs::find_marker(line.text, 0, syntax_.file.comment);
      return marker && marker->name == block;
    };
    const auto found = std::ranges::find_if(lines_, is_of_block);
    if (found == lines_.end()) return;
    refuse("no marker of " + std::string(block) + " yet",
           "one in line " + std::to_string(found->number));
  }

  [[nodiscard]] const Heading& heading(const std::string& text) const {
    const auto found = std::ranges::find(headings_, text, &Heading::text);
    if (found == headings_.end()) refuse_heading(text);
    const auto second = std::ranges::find(found + 1, headings_.end(), text, &Heading::text);
    if (second == headings_.end()) return *found;
    refuse(
        "the heading " + registry_docs::in_quotes(text) + " once",
        "it in lines " + std::to_string(found->line) + " and " + std::to_string(second->line));
  }

  [[noreturn]] void refuse_heading(const std::string& text) const {
    std::vector<std::string_view> texts(headings_.size());
    std::ranges::transform(headings_, texts.begin(), &Heading::text);
    const std::string_view meant = text::nearest(text, texts);
    const std::string found =
        texts.empty()    ? "none"
        : !meant.empty() ? registry_docs::in_quotes(meant)
                         : registry_docs::excerpt(text::join(texts, ", ", [](auto each) {
                             return registry_docs::in_quotes(each);
                           }));
    refuse("the heading " + registry_docs::in_quotes(text), found);
  }

  [[nodiscard]] BlockReport report_of(const Addition& added) const {
    const std::string_view text = file_.text;
    const std::size_t line =
        registry_docs::LineCounter(text).line_of(text.data() + added.place.begin) - 1;
    const auto markers = [this](std::string_view name) {
      return registry_docs::opening_marker(name, syntax_.file.comment) + "\n" +
             registry_docs::closing_marker(name, syntax_.file.comment) + "\n";
    };
    return {.name = text::join(added.names, ", "),
            .state = BlockState::stale,
            .line = line,
            .last_line = line + 1,
            .begin = added.place.begin,
            .end = added.place.end,
            .rendered = added.place.before + text::join(added.names, "\n", markers) +
                        added.place.after};
  }

  // Markers in fenced code would be examples.
  void require_blocks(std::size_t before) const {
    const std::string text = registry_docs::new_text(file_);
    const auto found = registry_docs::blocks_of(text, syntax_.file);
    const bool are_all = std::ranges::all_of(blocks_, [&](const MarkedBlock& each) {
      return std::ranges::count(found, each.name, &BlockReport::name) == 1;
    });
    if (are_all && found.size() == before + blocks_.size()) return;
    refuse("a place where a block can stand", "one within fenced code or another block");
  }

  std::string name_;
  registry::Syntax syntax_;
  FileReport file_;
  std::vector<LiveLine> lines_;
  std::vector<Heading> headings_;
  std::vector<Addition> additions_ = {};
  std::vector<MarkedBlock> blocks_ = {};
};

}  // namespace

std::vector<MarkedFile> mark_files(const fs::path& root, std::span<const Wanted> wanted) {
  std::deque<Marking> markings;
  for (const Wanted& each : wanted) {
    auto found = std::ranges::find(markings, each.path, &Marking::path);
    if (found == markings.end()) {
      markings.emplace_back(root, each.path);
      found = std::prev(markings.end());
    }
    found->add(each);
  }
  std::vector<MarkedFile> files(markings.size());
  std::ranges::transform(markings, files.begin(), &Marking::finish);
  return files;
}

}  // namespace gen_registry_docs::init
