#include "registry/find_registries.h"

#include <unistd.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "registry/documents.h"
#include "registry/walk.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

namespace fs = std::filesystem;

// The directory that has the file as its document, if one does.
std::optional<std::string_view> holder_of(std::string_view file, std::string_view document) {
  if (!file.ends_with(document)) return std::nullopt;
  file.remove_suffix(document.size());
  if (file.empty()) return file;
  if (!file.ends_with('/')) return std::nullopt;
  return file.substr(0, file.size() - 1);
}

// Adds the directory that has what was seen as its document, if one does.
void look_at(const fs::path& start, const Seen& seen, std::string_view document,
             std::vector<fs::path>& found) {
  if (!document.ends_with(seen.entry.name)) return;
  const std::string path = joined(seen.directory, seen.entry.name);
  const auto holder = holder_of(path, document);
  if (!holder || seen.is_ignored()) return;
  const bool is_there =
      seen.entry.kind != port::EntryKind::link || ::access((start / path).c_str(), F_OK) == 0;
  if (is_there) found.push_back(holder->empty() ? start : start / *holder);
}

}  // namespace

std::vector<fs::path> find_registries(const fs::path& directory) {
  std::vector<fs::path> found;
  const auto look = [&](const Seen& seen) {
    for (const std::string_view document : {tesmo_sorvet::registry_path, registry_path}) {
      look_at(directory, seen, document, found);
    }
  };
  walk(directory, look, [](std::string_view) { return true; });
  std::ranges::sort(found);
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

}  // namespace registry
