#include "port/spawn.h"

#include <unistd.h>

namespace port {

std::vector<std::string> variables() {
  std::vector<std::string> found;
  for (char** line = environ; *line != nullptr; ++line) found.emplace_back(*line);
  return found;
}

void add_directory(posix_spawn_file_actions_t& actions, const std::string& directory) {
  ::posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
}

}  // namespace port
