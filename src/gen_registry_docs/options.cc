#include "gen_registry_docs/options.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "gen_registry_docs/nearest.h"

namespace gen_registry_docs {
namespace {

struct ActionSwitch {
  std::string_view name;
  Action action;
};
constexpr std::array<ActionSwitch, 6> actions = {{{"--check", Action::check},
                                                  {"--write", Action::write},
                                                  {"--list", Action::list},
                                                  {"--help", Action::help},
                                                  {"-h", Action::help},
                                                  {"--version", Action::version}}};

struct FlagSwitch {
  std::string_view name;
  bool Options::*flag;
};
constexpr std::array<FlagSwitch, 2> flags = {
    {{"--quiet", &Options::quiet}, {"--exit-code", &Options::exit_code}}};

struct ValueSwitch {
  std::string_view name;
  std::optional<std::string> Options::*value;
};
constexpr std::array<ValueSwitch, 2> values = {
    {{"--root", &Options::root}, {"--registry", &Options::registry}}};

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

bool take_any_value(std::string_view argument, Arguments& rest, Options& options) {
  return std::ranges::any_of(values, [&](const ValueSwitch& each) {
    return take_value(each.name, argument, rest, options.*(each.value));
  });
}

// The option that was probably meant.
std::string_view meant_option(std::string_view argument) {
  std::vector<std::string_view> names;
  const auto add = [&names](const auto& each) { names.push_back(each.name); };
  std::ranges::for_each(actions, add);
  std::ranges::for_each(flags, add);
  std::ranges::for_each(values, add);
  return nearest(argument.substr(0, argument.find('=')), names);
}

UsageError unknown_option(std::string_view argument) {
  const std::string_view option = meant_option(argument);
  const std::string meant = option.empty() ? "" : ", perhaps " + std::string(option);
  return UsageError(quoted(argument) + ": expected an option" + meant + ", see --help");
}

std::string_view name_of(Action action) {
  return std::ranges::find(actions, action, &ActionSwitch::action)->name;
}

// Refuses what makes no sense together.
void require_consistency(const Options& options) {
  const std::string found = ", found " + std::string(name_of(options.action));
  if (options.quiet && options.action == Action::list) {
    throw UsageError("--quiet: expected --check or --write beside it" + found);
  }
  if (options.exit_code && options.action != Action::write) {
    throw UsageError("--exit-code: expected --write beside it" + found);
  }
}

}  // namespace

const char* const help_text =
    R"(Makes every list of a tool server's tools from its registry.

usage: gen_registry_docs (--check | --write) [--root DIR] [--registry FILE]
       gen_registry_docs --list [--root DIR] [--registry FILE]

  --check          name every file whose generated blocks are out of date or whose
                   markers are wrong, one line each; write nothing
  --write          rewrite the files whose blocks are out of date, and print their paths
  --list           show every generated block with its file, line and state
  --root DIR       the repository (default: the nearest directory, from the current one
                   upward, that holds src/tesmo_sorvet/tool_registry.json)
  --registry FILE  the registry file (default: that file under the root; "-" is standard
                   input)
  --quiet          print nothing but errors
  --exit-code      with --write: end with 1 when a file was written
  --help           print this text
  --version        print the version

exit status
  0  nothing to report: all current, or written
  1  --check found problems, --write was refused because of one, or --exit-code
  2  it could not do its work: wrong usage, a registry that cannot be used, a file that
     cannot be read, decoded or written
)";

Options parse_options(std::span<const char* const> arguments) {
  Options options;
  std::optional<Action> action;
  for (Arguments rest(arguments); !rest.empty();) {
    const std::string_view argument = rest.take();
    const auto* const found = std::ranges::find(actions, argument, &ActionSwitch::name);
    const auto* const flag = std::ranges::find(flags, argument, &FlagSwitch::name);
    if (found != actions.end()) {
      if (found->action == Action::help || found->action == Action::version) {
        return {.action = found->action};
      }
      if (action && *action != found->action) {
        const auto [first, second] = std::minmax({*action, found->action});
        throw UsageError(std::string(name_of(first)) + " " + std::string(name_of(second)) +
                         ": expected one of them, found both");
      }
      action = found->action;
    } else if (flag != flags.end()) {
      options.*(flag->flag) = true;
    } else if (!take_any_value(argument, rest, options)) {
      throw unknown_option(argument);
    }
  }
  if (!action) {
    throw UsageError("gen_registry_docs: expected --check, --write or --list, found none");
  }
  options.action = *action;
  require_consistency(options);
  return options;
}

}  // namespace gen_registry_docs
