#include "registry/walk.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "registry_docs/errors.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
using port::Entry;
using port::EntryKind;

// A directory that is still to be looked into.
struct Place {
  std::string path;  // from where the walk begins
  IgnoreRules rules;
};

bool has_entry(const std::vector<Entry>& entries, std::string_view name) {
  return std::ranges::find(entries, name, &Entry::name) != entries.end();
}

// What the directory holds; its own rules join those above.
std::vector<Entry> look_into(const fs::path& directory, IgnoreRules& rules) {
  std::vector<Entry> entries;
  if (const auto failure = port::list_directory(directory, entries)) {
    throw registry_docs::FileError(directory, failure);
  }
  if (has_entry(entries, repository_name)) rules = rules_of_work_tree(directory);
  if (has_entry(entries, ignore_file_name)) {
    rules = with_own_rules(std::move(rules), directory);
  }
  return entries;
}

bool may_be_entered(const Seen& seen) {
  const Entry& entry = seen.entry;
  return entry.kind == EntryKind::directory && entry.name != repository_name &&
         entry.name != "node_modules" && !seen.is_ignored();
}

}  // namespace

std::string joined(std::string_view directory, std::string_view name) {
  std::string path(directory);
  if (!path.empty()) path += '/';
  return path.append(name);
}

// Without recursion, for trees of any depth.
void walk(const fs::path& start, const std::function<void(const Seen&)>& look,
          const std::function<bool(std::string_view directory)>& enters) {
  std::vector<Place> left = {{"", rules_above(start)}};
  while (!left.empty()) {
    Place place = std::move(left.back());
    left.pop_back();
    const fs::path directory = place.path.empty() ? start : start / place.path;
    for (const Entry& entry : look_into(directory, place.rules)) {
      const Seen seen{place.path, entry, place.rules};
      look(seen);
      if (!may_be_entered(seen)) continue;
      std::string path = joined(place.path, entry.name);
      if (!enters(path)) continue;
      left.push_back({std::move(path), rules_within(place.rules, entry.name)});
    }
  }
}

}  // namespace registry
