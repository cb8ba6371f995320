// What git ignores, by the .gitignore files of a work tree and its .git/info/exclude.
//
// This follows git in what it reads and how, but for these:
// - git is not started, nor its configuration read: neither the user's own excludes nor
//   `core.ignoreCase` counts.
// - The index is not read: a file that git tracks though a rule ignores it counts as ignored.
// - A .git that is a file, as in a linked work tree or a submodule, begins a work tree, but is
//   not followed to an info/exclude elsewhere.
// - Any .git begins a work tree, whatever it holds.
#ifndef REGISTRY_IGNORE_H
#define REGISTRY_IGNORE_H

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "registry/ignore_rule.h"

namespace registry {

inline constexpr const char* repository_name = ".git";
inline constexpr const char* ignore_file_name = ".gitignore";

// The rules that count for what a directory holds, without what it is in itself being ignored.
// Cheap to copy.
struct IgnoreRules {
  // The rules of one file, before those of the directories above it.
  struct Level {
    std::size_t directory_size;  // of the file's own, at the beginning of `directory`
    std::vector<IgnoreRule> rules;
    std::shared_ptr<const Level> above;
  };

  std::string directory = {};  // from the top of the work tree, with "/" behind each name
  std::shared_ptr<const Level> nearest = {};
};

// The rules of the directories above this one, up to the top of its work tree; none for one
// that is in no work tree, or the top of one. All of these throw FileError.
IgnoreRules rules_above(const std::filesystem::path& directory);

// At the top of a work tree: the rules of its .git/info/exclude.
IgnoreRules rules_of_work_tree(const std::filesystem::path& top);

// In the directory `name` within the one that has these rules.
IgnoreRules rules_within(const IgnoreRules& rules, std::string_view name);

// With those of the directory's .gitignore, if there is one. As in git, a link is none.
IgnoreRules with_own_rules(IgnoreRules rules, const std::filesystem::path& directory);

// Whether git ignores `name` in the directory, if it does not ignore the directory.
bool ignores(const IgnoreRules& rules, std::string_view name, bool is_directory);

}  // namespace registry

#endif  // REGISTRY_IGNORE_H
