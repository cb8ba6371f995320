#include "gen_registry_docs/options.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace gen_registry_docs {
namespace {

struct Switch {
  std::string_view name;
  Action action;
};

constexpr std::array<Switch, 5> switches = {{{"--check", Action::check},
                                             {"--write", Action::write},
                                             {"--help", Action::help},
                                             {"-h", Action::help},
                                             {"--version", Action::version}}};

// The command line, taken from left to right.
class Arguments {
 public:
  explicit Arguments(std::span<const char* const> rest) : rest_(rest) {}

  [[nodiscard]] bool empty() const { return rest_.empty(); }

  std::string_view take() {
    const std::string_view taken = rest_.front();
    rest_ = rest_.subspan(1);
    return taken;
  }

 private:
  std::span<const char* const> rest_;
};

std::string quoted(std::string_view argument) { return "'" + std::string(argument) + "'"; }

// Takes the value of the option `name` when `argument` is that option, as "--root DIR" or
// "--root=DIR".
bool take_value(std::string_view name, std::string_view argument, Arguments& rest,
                std::optional<std::string>& value) {
  if (!argument.starts_with(name)) return false;
  const std::string_view behind = argument.substr(name.size());
  if (!behind.empty() && behind[0] != '=') return false;
  const std::string option(name);
  if (value) throw UsageError(option + ": expected once, found again");
  if (behind.empty() && rest.empty()) {
    throw UsageError(option + ": expected a value, found nothing");
  }
  value = behind.empty() ? rest.take() : behind.substr(1);
  if (value->empty()) throw UsageError(option + ": expected a value, found an empty one");
  return true;
}

UsageError wrong_actions(bool any) {
  return UsageError(any ? "--check --write: expected one of them, found both"
                        : "gen_registry_docs: expected --check or --write, found neither");
}

}  // namespace

const char* const help_text =
    R"(Makes every list of a tool server's tools from its registry.

usage: gen_registry_docs (--check | --write) [--root DIR] [--registry FILE]

  --check          name every file whose generated blocks are out of date or whose
                   markers are wrong, one line each; write nothing
  --write          rewrite the files whose blocks are out of date, and print their paths
  --root DIR       the repository (default: the nearest directory, from the current one
                   upward, that holds src/tesmo_sorvet/tool_registry.json)
  --registry FILE  the registry file (default: that file under the root; "-" is standard
                   input)
  --help           print this text
  --version        print the version

exit status
  0  nothing to report: all current, or written
  1  --check found problems, or --write was refused because of one
  2  it could not do its work: wrong usage, a registry that cannot be used, a file that
     cannot be read, decoded or written
)";

Options parse_options(std::span<const char* const> arguments) {
  Options options;
  std::optional<Action> action;
  for (Arguments rest(arguments); !rest.empty();) {
    const std::string_view argument = rest.take();
    const auto* const found = std::ranges::find(switches, argument, &Switch::name);
    if (found != switches.end()) {
      if (found->action == Action::help || found->action == Action::version) {
        return {.action = found->action};
      }
      if (action && *action != found->action) throw wrong_actions(true);
      action = found->action;
    } else if (!take_value("--root", argument, rest, options.root) &&
               !take_value("--registry", argument, rest, options.registry)) {
      throw UsageError(quoted(argument) + ": expected an option, see --help");
    }
  }
  if (!action) throw wrong_actions(false);
  options.action = *action;
  return options;
}

}  // namespace gen_registry_docs
