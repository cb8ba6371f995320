#include "registry/find_registries.h"

#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "port/directory.h"
#include "registry/documents.h"
#include "registry/ignore.h"
#include "registry_docs/errors.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
using port::Entry;
using port::EntryKind;

// A directory that is still to be looked into.
struct Place {
  std::string path;  // from where the search begins, which is ""
  IgnoreRules rules;
};

std::string joined(std::string_view directory, std::string_view name) {
  std::string path(directory);
  if (!path.empty()) path += '/';
  return path.append(name);
}

// The directory that has the file as its document, if one does.
std::optional<std::string_view> holder_of(std::string_view file, std::string_view document) {
  if (!file.ends_with(document)) return std::nullopt;
  file.remove_suffix(document.size());
  if (file.empty()) return file;
  if (!file.ends_with('/')) return std::nullopt;
  return file.substr(0, file.size() - 1);
}

// The walk goes without recursion, for trees of any depth.
class Search {
 public:
  explicit Search(const fs::path& start) : start_(start) {}

  std::vector<fs::path> run() {
    left_.push_back({"", rules_above(start_)});
    while (!left_.empty()) {
      Place place = std::move(left_.back());
      left_.pop_back();
      look_into(place);
    }
    std::ranges::sort(found_);
    found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
    return std::move(found_);
  }

 private:
  [[nodiscard]] fs::path path_of(std::string_view path) const {
    return path.empty() ? start_ : start_ / path;
  }

  void look_into(Place& place) {
    const fs::path directory = path_of(place.path);
    entries_.clear();
    if (const auto failure = port::list_directory(directory, entries_)) {
      throw registry_docs::FileError(directory, failure);
    }
    if (has_entry(repository_name)) place.rules = rules_of_work_tree(directory);
    if (has_entry(ignore_file_name)) {
      place.rules = with_own_rules(std::move(place.rules), directory);
    }
    for (const Entry& entry : entries_) look_at(place, entry);
  }

  [[nodiscard]] bool has_entry(std::string_view name) const {
    return std::ranges::find(entries_, name, &Entry::name) != entries_.end();
  }

  void look_at(const Place& place, const Entry& entry) {
    for (const std::string_view document : {tesmo_sorvet::registry_path, registry_path}) {
      if (document.ends_with(entry.name)) look_at_document(place, entry, document);
    }
    if (entry.kind != EntryKind::directory || entry.name == repository_name ||
        entry.name == "node_modules" || ignores(place.rules, entry.name, true)) {
      return;
    }
    left_.push_back({joined(place.path, entry.name), rules_within(place.rules, entry.name)});
  }

  void look_at_document(const Place& place, const Entry& entry, std::string_view document) {
    const std::string path = joined(place.path, entry.name);
    const auto holder = holder_of(path, document);
    if (!holder || ignores(place.rules, entry.name, entry.kind == EntryKind::directory))
      return;
    const bool is_there =
        entry.kind != EntryKind::link || ::access(path_of(path).c_str(), F_OK) == 0;
    if (is_there) found_.push_back(path_of(*holder));
  }

  const fs::path& start_;
  std::vector<Place> left_ = {};
  std::vector<Entry> entries_ = {};  // of one place after the other
  std::vector<fs::path> found_ = {};
};

}  // namespace

std::vector<fs::path> find_registries(const fs::path& directory) {
  return Search(directory).run();
}

}  // namespace registry
