#include "gen_registry_docs/formats/github.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "gen_registry_docs/formats/changes.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::formats {
namespace {

namespace fs = std::filesystem;
using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using registry_docs::FileState;

// The text with each of the characters as "%" and two digits.
std::string escaped(std::string_view text, std::string_view characters) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    if (characters.find(c) == std::string_view::npos) {
      result += c;
    } else {
      result += {'%', digits[static_cast<std::size_t>(c >> 4)],
                 digits[static_cast<std::size_t>(c & 15)]};
    }
  }
  return result;
}

std::string escaped_property(std::string_view text) { return escaped(text, "%\r\n:,"); }
std::string escaped_data(std::string_view text) { return escaped(text, "%\r\n"); }

// Where a person has to begin: at the first step that has a place, or else at the first block
// that is not current.
std::size_t line_of_problem(const FileReport& file, const advice::Steps& steps) {
  const auto has_place = [](const advice::Step& step) { return step.line != 0; };
  const auto step = std::ranges::find_if(steps, has_place);
  if (step != steps.end()) return step->line;
  const auto is_at_fault = [](const BlockReport& block) {
    return block.state != BlockState::current && block.line != 0;
  };
  const auto block = std::ranges::find_if(file.blocks, is_at_fault);
  return block == file.blocks.end() ? 1 : block->line;
}

std::string annotation(const fs::path& path, std::size_t line, std::string_view message) {
  return "::error file=" + escaped_property(path.string()) + ",line=" + std::to_string(line) +
         "::" + escaped_data(message) + "\n";
}

// The annotation of a file with a problem.
std::string annotation(const FileReport& file, const advice::Steps& steps,
                       const fs::path& root) {
  std::string message = file.problem;
  for (const std::string& line : advice::lines(steps)) message += "\n" + line;
  return annotation((root / file.path).lexically_normal(), line_of_problem(file, steps),
                    message);
}

// The beginning of a message: a path and, behind a colon, the line if one is named.
struct Place {
  fs::path path;
  std::size_t line = 1;
};

Place place_of(const std::string& message) {
  std::string path = message.substr(0, message.find(": "));
  std::size_t line = 1;
  const auto digits_begin = [&path] { return path.find_last_not_of("0123456789") + 1; };
  for (std::size_t at = digits_begin(); at > 1 && at < path.size() && path[at - 1] == ':';
       at = digits_begin()) {
    line = std::strtoul(path.c_str() + at, nullptr, 10);  // of a line and a column the first
    path.resize(at - 1);
  }
  return {path, line};
}

// The directory that holds the files, seen from the top.
fs::path seen_from(const fs::path& top, const fs::path& root) {
  std::error_code failure;
  const fs::path near = fs::proximate(root.empty() ? "." : root, top, failure);
  return failure ? root : near;
}

}  // namespace

std::string github_report(std::span<const FileReport> files,
                          std::span<const advice::Steps> steps, const fs::path& root,
                          const fs::path& top) {
  const fs::path seen_root = seen_from(top, root);
  std::string commands;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].state == FileState::current) continue;
    commands += annotation(files[i], steps[i], seen_root);
  }
  return commands;
}

std::string github_changes(std::span<const registry::ServerChange> changes,
                           const fs::path& root, const fs::path& top) {
  std::string commands;
  for (const registry::ServerChange& each : changes) {
    const bool is_breaking = each.change.verdict == registry_docs::changes::Verdict::breaking;
    const fs::path path = (seen_from(top, root) / each.path).lexically_normal();
    commands += std::string(is_breaking ? "::error" : "::notice") +
                " file=" + escaped_property(path.string()) +
                ",line=1,title=" + std::string(verdict_name(each.change.verdict)) +
                "::" + escaped_data(told(each)) + "\n";
  }
  return commands;
}

std::string github_failure(const std::string& message, const fs::path& top) {
  const Place place = place_of(message);
  const std::string shown = registry_docs::visible(message);
  std::error_code failure;
  const bool is_there = fs::exists(place.path, failure);
  const fs::path path = is_there ? fs::proximate(place.path, top, failure) : fs::path();
  return path.empty() ? "::error::" + escaped_data(shown) + "\n"
                      : annotation(path, place.line, shown);
}

}  // namespace gen_registry_docs::formats
