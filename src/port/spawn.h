// What posix_spawn(3) lacks for starting a program.
#ifndef PORT_SPAWN_H
#define PORT_SPAWN_H

#include <spawn.h>

#include <string>
#include <vector>

namespace port {

// This program's variables, each as "NAME=VALUE".
std::vector<std::string> variables();

// Adds that the program starts in the directory, after the actions that were added before.
void add_directory(posix_spawn_file_actions_t& actions, const std::string& directory);

}  // namespace port

#endif  // PORT_SPAWN_H
