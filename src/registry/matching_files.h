// The files of a repository that patterns of paths fit.
#ifndef REGISTRY_MATCHING_FILES_H
#define REGISTRY_MATCHING_FILES_H

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace registry {

// The paths within the repository, under each pattern, of the files that it fits, in order:
// regular files that git does not ignore, without those below .git and node_modules (see
// walk.h). A pattern is that of text/glob.h, and matches from the root on. The tree is walked
// over once, and only where a pattern may fit. Throws FileError.
std::map<std::string, std::vector<std::string>> matching_files(
    const std::filesystem::path& root, const std::set<std::string>& patterns);

}  // namespace registry

#endif  // REGISTRY_MATCHING_FILES_H
