#include "mcp_client/command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

namespace mcp_client {
namespace {

using Variables = std::vector<std::string>;

void set(Variables& variables, const std::string& name, const std::string& value) {
  const auto is_old = [&](const std::string& line) { return line.starts_with(name + "="); };
  std::erase_if(variables, is_old);
  variables.push_back(name + "=" + value);
}

Variables variables_of(const Server& server) {
  Variables variables;
  for (char** line = environ; *line != nullptr; ++line) variables.emplace_back(*line);
  for (const auto& [name, value] : server.env) set(variables, name, value);
  return variables;
}

std::string search_path(const Variables& variables) {
  constexpr std::string_view name = "PATH=";
  for (const std::string& line : variables) {
    if (line.starts_with(name)) return line.substr(name.size());
  }
  return "/usr/local/bin:/usr/bin:/bin";
}

bool is_program(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         ::access(path.c_str(), X_OK) == 0;
}

// The first program of that name, or an empty path, which the system does not find either.
std::string find(const std::string& command, const std::string& directories) {
  for (std::size_t begin = 0; begin <= directories.size();) {
    const std::size_t end = std::min(directories.find(':', begin), directories.size());
    const std::string directory = directories.substr(begin, end - begin);
    std::string path = (directory.empty() ? "." : directory) + "/" + command;
    if (is_program(path)) return path;
    begin = end + 1;
  }
  return "";
}

}  // namespace

Command command_of(const Server& server) {
  Command command{server.command, {server.command}, variables_of(server)};
  command.arguments.insert(command.arguments.end(), server.args.begin(), server.args.end());
  if (server.command.find('/') == std::string::npos) {
    command.path = find(server.command, search_path(command.environment));
  }
  return command;
}

}  // namespace mcp_client
