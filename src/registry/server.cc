#include "registry/server.h"

#include <array>

#include "registry_docs/text.h"

namespace registry {
namespace {

// A text that the system takes, which ends it at its first NUL.
std::string system_text(const json::Node& declared) {
  const std::string_view text = declared.string();
  if (text.find('\0') != std::string_view::npos) {
    declared.refuse("a text without NUL characters", "one");
  }
  return std::string(text);
}

std::string filled_text(const json::Node& declared, const std::string& expected) {
  if (declared.string().empty()) declared.refuse(expected, "an empty string");
  return system_text(declared);
}

void read_environment(const json::Node& declared, Server& server) {
  declared.for_each_member([&](std::string_view name, const json::Node& value) {
    const bool is_name = !name.empty() && name.find('=') == std::string_view::npos &&
                         name.find('\0') == std::string_view::npos;
    if (!is_name) value.refuse("the name of a variable", registry_docs::in_quotes(name));
    server.env.emplace_back(name, system_text(value));
  });
}

}  // namespace

std::optional<Server> server(const json::Node& registry) {
  const auto declared = registry.find("server");
  if (!declared) return std::nullopt;
  constexpr std::array<std::string_view, 4> names = {"command", "args", "env", "cwd"};
  const auto [command, args, env, cwd] = declared->find_each(names);
  if (!command) declared->refuse_lack("command");
  Server found{.command = filled_text(*command, "a command")};
  if (args) {
    args->for_each_element(
        [&](const json::Node& argument) { found.args.push_back(system_text(argument)); });
  }
  if (env) read_environment(*env, found);
  if (cwd) found.cwd = filled_text(*cwd, "a directory");
  return found;
}

}  // namespace registry
