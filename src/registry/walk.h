// Walking over the files of a tree of directories.
#ifndef REGISTRY_WALK_H
#define REGISTRY_WALK_H

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "port/directory.h"
#include "registry/ignore.h"

namespace registry {

// What stands in a directory.
struct Seen {
  std::string_view directory;  // from where the walk begins, which is ""
  const port::Entry& entry;
  const IgnoreRules& rules;  // of the directory

  [[nodiscard]] bool is_ignored() const {
    return ignores(rules, entry.name, entry.kind == port::EntryKind::directory);
  }
};

// A name within a directory, which may be "".
std::string joined(std::string_view directory, std::string_view name);

// Calls `look` with everything in the directory and those below, in no order. `.git`,
// `node_modules`, directories that git ignores (see ignore.h) and those that `enters` says no
// to are not looked into, nor are links to directories. The directory itself is looked into,
// whatever it is called and whether or not git ignores it. A repository within another one has
// its own rules alone. `enters` is given a directory's path from where the walk begins.
//
// Throws FileError for a directory that cannot be read, unless it would not be looked into,
// and for rules that cannot be.
void walk(const std::filesystem::path& start, const std::function<void(const Seen&)>& look,
          const std::function<bool(std::string_view directory)>& enters);

}  // namespace registry

#endif  // REGISTRY_WALK_H
