// Prints what is ignored of all that stands below a directory, with a 0 behind each path:
// print_ignored DIRECTORY.
#include <exception>
#include <filesystem>
#include <iostream>

#include "registry/ignore.h"

namespace {

namespace fs = std::filesystem;

void print(const fs::path& directory, registry::IgnoreRules rules, bool is_all_ignored) {
  if (fs::exists(directory / ".git")) rules = registry::rules_of_work_tree(directory);
  rules = registry::with_own_rules(std::move(rules), directory);
  for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
    const std::string name = entry.path().filename();
    if (name == ".git") continue;
    const bool is_directory = entry.is_directory() && !entry.is_symlink();
    const bool is_ignored = is_all_ignored || registry::ignores(rules, name, is_directory);
    if (is_ignored) std::cout << entry.path().native() << '\0';
    if (is_directory) print(entry.path(), registry::rules_within(rules, name), is_ignored);
  }
}

}  // namespace

int main(int, char** argv) try {
  print(argv[1], registry::rules_above(argv[1]), false);
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
