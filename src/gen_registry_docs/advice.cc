#include "gen_registry_docs/advice.h"

#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "gen_registry_docs/conflicts.h"
#include "gen_registry_docs/loose_markers.h"
#include "gen_registry_docs/markers_of.h"
#include "gen_registry_docs/nearest.h"

namespace gen_registry_docs {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using registry_docs::FileState;
using Lines = std::vector<std::string>;
using Names = std::unordered_set<std::string_view>;

std::string place(const FileReport& file, std::size_t line) {
  return file.path + ":" + std::to_string(line) + ": ";
}

void add_conflicts(Lines& lines, const FileReport& file) {
  for (const Conflict& conflict : conflicts_across_markers(file)) {
    lines.push_back(place(file, conflict.line) +
                    "a merge conflict reaches across a marker, to line " +
                    std::to_string(conflict.last_line) + "; choose a side of it by hand");
  }
}

// Each of these adds to `explained` the names whose absence its lines explain.

void add_loose_markers(Lines& lines, const FileReport& file, Names& explained) {
  for (const LooseMarker& marker : loose_markers(file)) {
    lines.push_back(place(file, marker.line) + marker.fault);
    explained.insert(marker.name);
  }
}

void add_unknown(Lines& lines, const FileReport& file, Names& explained) {
  constexpr std::size_t most_guesses = 20;  // each looks at all names
  const std::vector<std::string_view> declared(file.declared.begin(), file.declared.end());
  std::size_t guesses = 0;
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::unknown) continue;
    const std::string_view meant =
        guesses++ < most_guesses ? nearest(block.name, declared) : std::string_view();
    lines.push_back(place(file, block.line) + block.name + " is no block of this file; " +
                    (meant.empty() ? "take it out, or mend its name"
                                   : "perhaps " + std::string(meant) + " is meant"));
    explained.insert(meant);
  }
}

void add_repeated(Lines& lines, const FileReport& file) {
  std::unordered_map<std::string_view, std::size_t> first_lines;
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::repeated) continue;
    const auto [first, is_new] = first_lines.emplace(block.name, block.line);
    if (is_new) continue;
    lines.push_back(place(file, block.line) + block.name + " stands at line " +
                    std::to_string(first->second) + " already; keep one of them");
  }
}

// Missing blocks that follow each other in the declared order, and the last line of the block
// before them; 0 when none of those before them stands in the file.
struct MissingBlocks {
  std::vector<std::string_view> names = {};
  std::size_t behind = 0;
};

void add_missing(Lines& lines, const FileReport& file, const MissingBlocks& missing) {
  if (missing.names.empty()) return;
  std::string names;
  for (const std::string_view name : missing.names) {
    names += (names.empty() ? "" : ", ") + std::string(name);
  }
  const std::string where = missing.behind == 0
                                ? "where the lists shall stand"
                                : "behind line " + std::to_string(missing.behind);
  lines.push_back(file.path + ": missing " + names + "; put these lines " + where + ":");
  for (const std::string_view name : missing.names) {
    lines.push_back(opening_marker(name));
    lines.push_back(closing_marker(name));
  }
}

void add_all_missing(Lines& lines, const FileReport& file, const Names& explained) {
  std::unordered_map<std::string_view, std::size_t> last_lines;
  for (const BlockReport& block : file.blocks) last_lines.emplace(block.name, block.last_line);
  MissingBlocks missing;
  for (const std::string& name : file.declared) {
    const std::size_t last_line = last_lines.at(name);
    if (last_line != 0) {
      add_missing(lines, file, missing);
      missing = {.behind = last_line};
    } else if (!explained.contains(name)) {
      missing.names.push_back(name);
    }
  }
  add_missing(lines, file, missing);
}

}  // namespace

std::vector<std::string> advice(const FileReport& file) {
  Lines lines;
  if (file.state == FileState::current) return lines;
  add_conflicts(lines, file);
  const bool is_explained = !lines.empty();
  if (is_explained || file.state != FileState::wrong_markers) return lines;
  Names explained;
  add_loose_markers(lines, file, explained);
  add_unknown(lines, file, explained);
  add_repeated(lines, file);
  add_all_missing(lines, file, explained);
  return lines;
}

}  // namespace gen_registry_docs
