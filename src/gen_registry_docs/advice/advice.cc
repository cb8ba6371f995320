#include "gen_registry_docs/advice/advice.h"

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "gen_registry_docs/advice/conflicts.h"
#include "gen_registry_docs/advice/loose_markers.h"
#include "registry_docs/markers.h"
#include "text/nearest.h"

namespace gen_registry_docs::advice {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using registry_docs::FileState;
using Names = std::unordered_set<std::string_view>;

void add(Steps& steps, const FileReport& file, std::size_t line, const std::string& text) {
  steps.push_back({line, file.path + ":" + std::to_string(line) + ": " + text, {}});
}

std::string conflict_text(const Conflict& conflict) {
  return "a merge conflict reaches across a marker, to line " +
         std::to_string(conflict.last_line) + "; choose a side of it by hand";
}

void add_conflicts(Steps& steps, const FileReport& file) {
  for (const Conflict& conflict :
       conflicts_across_markers(file.text, file.blocks, file.syntax.comment)) {
    add(steps, file, conflict.line, conflict_text(conflict));
  }
}

// A name that no marker can hold, though the registry makes a block of it.
bool is_impossible(std::string_view name) {
  const std::string marker = registry_docs::opening_marker(name);
  const auto found = registry_docs::find_marker(marker, 0);
  return !found || found->name != name;
}

// The missing blocks that a marker can stand for.
std::vector<std::string_view> possible_names(const FileReport& file) {
  std::vector<std::string_view> names;
  for (const BlockReport& block : file.blocks) {
    if (block.state == BlockState::missing && !is_impossible(block.name)) {
      names.push_back(block.name);
    }
  }
  return names;
}

// Some of these add to `explained` the names whose absence their steps explain.

void add_loose_markers(Steps& steps, const FileReport& file, text::Guesses& guesses,
                       Names& explained) {
  for (const LooseMarker& marker : loose_markers(file, guesses)) {
    add(steps, file, marker.line, marker.fault);
    explained.insert(marker.name);
  }
}

void add_unknown(Steps& steps, const FileReport& file, text::Guesses& guesses,
                 Names& explained) {
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::unknown) continue;
    const std::string_view meant = guesses.take(block.name);
    add(steps, file, block.line,
        block.name + " is no block of this file; " +
            (meant.empty() ? "remove its markers and what is between them, or fix its name"
                           : "perhaps " + std::string(meant) + " is meant"));
    explained.insert(meant);
  }
}

void add_repeated(Steps& steps, const FileReport& file) {
  std::unordered_map<std::string_view, std::size_t> first_lines;
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::repeated) continue;
    const auto [first, is_new] = first_lines.emplace(block.name, block.line);
    if (is_new) continue;
    add(steps, file, block.line,
        block.name + " stands at line " + std::to_string(first->second) +
            " already; keep one of them");
  }
}

void add_impossible(Steps& steps, const FileReport& file, Names& explained) {
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::missing || !is_impossible(block.name)) continue;
    steps.push_back({0,
                     file.path + ": " + block.name +
                         " can be no block; rename the tool, with letters, numbers, \"_\", "
                         "\":\" and \"-\" alone",
                     {}});
    explained.insert(block.name);
  }
}

// What to do about blocks that are missing behind one line; 0 when the place is free.
Step step_for_missing(const FileReport& file, std::span<const std::string_view> names,
                      std::size_t line) {
  Step step{line, file.path + ": missing ", {}};
  for (const std::string_view name : names) {
    if (!step.paste.empty()) step.text += ", ";
    step.text += name;
    step.paste.push_back(registry_docs::opening_marker(name, file.syntax.comment));
    step.paste.push_back(registry_docs::closing_marker(name, file.syntax.comment));
  }
  step.text += line == 0 ? "; put these lines where the lists belong:"
                         : "; put these lines after line " + std::to_string(line) + ":";
  return step;
}

// From the last line to the first, so that each line number holds until its turn comes.
void add_missing(Steps& steps, const FileReport& file, const Names& explained) {
  const std::size_t before = steps.size();
  std::vector<std::string_view> names;
  std::size_t line = 0;
  const auto finish = [&] {
    if (!names.empty()) steps.push_back(step_for_missing(file, names, line));
    names.clear();
  };
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::missing || explained.contains(block.name)) continue;
    if (block.last_line != line) finish();
    line = block.last_line;
    names.push_back(block.name);
  }
  finish();
  const auto added = std::span(steps).subspan(before);
  std::ranges::stable_sort(added, std::ranges::greater(), &Step::line);
}

// What a person has to fix outside of all blocks.
void add_faults(Steps& steps, const FileReport& file) {
  for (const BlockReport& part : file.blocks) {
    if (part.fault.empty()) continue;
    if (part.line != 0) {
      add(steps, file, part.line, part.fault);
    } else {
      steps.push_back({0, file.path + ": " + part.fault, {}});
    }
  }
}

}  // namespace

Steps steps(const FileReport& file) {
  Steps found;
  if (file.state == FileState::current) return found;
  add_conflicts(found, file);
  add_faults(found, file);
  if (!found.empty() || file.state != FileState::wrong_markers) return found;
  Names explained;
  text::Guesses guesses(possible_names(file));
  add_unknown(found, file, guesses, explained);
  add_loose_markers(found, file, guesses, explained);
  add_repeated(found, file);
  add_impossible(found, file, explained);
  add_missing(found, file, explained);
  return found;
}

std::vector<Steps> steps(std::span<const FileReport> files) {
  std::vector<Steps> found;
  found.reserve(files.size());
  for (const FileReport& file : files) found.push_back(steps(file));
  return found;
}

std::vector<std::string> lines(const Steps& steps) {
  std::vector<std::string> lines;
  for (const Step& step : steps) {
    lines.push_back(step.text);
    lines.insert(lines.end(), step.paste.begin(), step.paste.end());
  }
  return lines;
}

std::optional<std::string> refusal(const FileReport& file) {
  if (file.state == FileState::current) return std::nullopt;
  if (file.state != FileState::stale) return file.problem;
  Steps conflicts;
  add_conflicts(conflicts, file);
  if (conflicts.empty()) return std::nullopt;
  return conflicts.front().text;
}

}  // namespace gen_registry_docs::advice
