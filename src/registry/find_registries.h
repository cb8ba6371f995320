// The registry documents of a tree of directories.
#ifndef REGISTRY_FIND_REGISTRIES_H
#define REGISTRY_FIND_REGISTRIES_H

#include <filesystem>
#include <vector>

namespace registry {

// Every directory at or below this one that holds a registry document, at either of its
// places, as find_registry() has it. Each path begins with `directory`, as it is given. Their
// order is that of their bytes with "/" first, so a directory comes before those within it.
//
// `.git`, `node_modules` and what git ignores (see ignore.h) are not looked into, nor are
// links to directories; a document that git ignores is none. The directory itself is looked
// into, whatever it is called and whether or not git ignores it. A repository within another
// one has its own rules alone.
//
// Throws FileError for a directory that cannot be read, unless it would not be looked into,
// and for rules that cannot be.
std::vector<std::filesystem::path> find_registries(const std::filesystem::path& directory);

}  // namespace registry

#endif  // REGISTRY_FIND_REGISTRIES_H
