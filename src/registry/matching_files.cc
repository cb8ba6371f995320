#include "registry/matching_files.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "registry/walk.h"
#include "text/glob.h"

namespace registry {
namespace {

namespace fs = std::filesystem;

struct Pattern {
  std::string_view beginning;  // the directories before all that is not to be taken literally
  std::optional<text::Glob> glob;
  std::vector<std::string>* files;
};

std::string_view beginning_of(std::string_view pattern) {
  const std::size_t sign = std::min(pattern.find_first_of("*?[\\"), pattern.size());
  const std::size_t slash = pattern.rfind('/', sign);
  return slash == std::string_view::npos ? std::string_view() : pattern.substr(0, slash);
}

// Whether one of two directories lies within the other, or is it.
bool lie_on_one_way(std::string_view one, std::string_view other) {
  if (one.size() > other.size()) std::swap(one, other);
  return other.starts_with(one) &&
         (one.empty() || one.size() == other.size() || other[one.size()] == '/');
}

bool is_regular(const fs::path& path) {
  std::error_code failure;
  return fs::symlink_status(path, failure).type() == fs::file_type::regular;
}

}  // namespace

std::map<std::string, std::vector<std::string>> matching_files(
    const fs::path& root, const std::set<std::string>& patterns) {
  std::map<std::string, std::vector<std::string>> found;
  std::vector<Pattern> read;
  read.reserve(patterns.size());
  for (const std::string& pattern : patterns) {
    read.push_back({beginning_of(pattern), text::parse_glob(pattern), &found[pattern]});
  }
  const auto look = [&](const Seen& seen) {
    if (seen.entry.kind != port::EntryKind::other) return;
    const std::string path = joined(seen.directory, seen.entry.name);
    for (const auto& [beginning, glob, files] : read) {
      const bool fits =
          lie_on_one_way(beginning, seen.directory) && glob && text::fits(path, *glob);
      if (fits && !seen.is_ignored() && is_regular(root / path)) files->push_back(path);
    }
  };
  const auto enters = [&](std::string_view directory) {
    return std::ranges::any_of(read, [directory](const Pattern& pattern) {
      return lie_on_one_way(pattern.beginning, directory);
    });
  };
  if (!read.empty()) walk(root, look, enters);
  for (auto& [pattern, files] : found) std::ranges::sort(files);
  return found;
}

}  // namespace registry
