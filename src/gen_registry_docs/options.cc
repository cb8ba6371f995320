#include "gen_registry_docs/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <string_view>
#include <vector>

#include "text/join.h"
#include "text/nearest.h"

namespace gen_registry_docs {
namespace {

struct ActionSwitch {
  std::string_view name;
  Action action;
};
constexpr std::array<ActionSwitch, 7> actions = {{{"--check", Action::check},
                                                  {"--write", Action::write},
                                                  {"--list", Action::list},
                                                  {"--print-model", Action::print_model},
                                                  {"--help", Action::help},
                                                  {"-h", Action::help},
                                                  {"--version", Action::version}}};

struct FlagSwitch {
  std::string_view name;
  bool Options::*flag;
};
constexpr std::array<FlagSwitch, 6> flags = {{{"--diff", &Options::diff},
                                              {"--quiet", &Options::quiet},
                                              {"--exit-code", &Options::exit_code},
                                              {"--recursive", &Options::recursive},
                                              {"--offline", &Options::offline},
                                              {"--strict", &Options::strict}}};

// The values as they are given.
struct Given {
  std::optional<std::string> print_layout = {};
  std::optional<std::string> root = {};
  std::optional<std::string> registry = {};
  std::optional<std::string> tools = {};
  std::optional<std::string> save_tools = {};
  std::optional<std::string> timeout = {};
  std::optional<std::string> format = {};
  std::optional<std::string> color = {};
  std::optional<std::string> fail_on = {};
  std::optional<std::string> jobs = {};
};
struct ValueSwitch {
  std::string_view name;
  std::optional<std::string> Given::*value;
};
constexpr std::string_view print_layout = "--print-layout";
constexpr std::array<ValueSwitch, 10> values = {{{print_layout, &Given::print_layout},
                                                 {"--root", &Given::root},
                                                 {"--registry", &Given::registry},
                                                 {"--tools", &Given::tools},
                                                 {"--save-tools", &Given::save_tools},
                                                 {"--timeout", &Given::timeout},
                                                 {"--format", &Given::format},
                                                 {"--color", &Given::color},
                                                 {"--fail-on", &Given::fail_on},
                                                 {"--jobs", &Given::jobs}}};

template <typename Value>
struct Choice {
  std::string_view name;
  Value value;
};
constexpr std::array<Choice<Format>, 3> formats = {
    {{"text", Format::text}, {"json", Format::json}, {"github", Format::github}}};
constexpr std::array<Choice<FailOn>, 2> severities = {
    {{"any", FailOn::any}, {"breaking", FailOn::breaking}}};
constexpr std::array<Choice<Color>, 3> colors = {
    {{"auto", Color::automatic}, {"always", Color::always}, {"never", Color::never}}};

bool take_any_value(std::string_view argument, Arguments& rest, Given& given) {
  return std::ranges::any_of(values, [&](const ValueSwitch& each) {
    return take_value(each.name, argument, rest, given.*(each.value));
  });
}

template <typename Value, std::size_t count>
std::optional<Value> chosen(const std::string& option, const std::optional<std::string>& name,
                            const std::array<Choice<Value>, count>& choices) {
  if (!name) return std::nullopt;
  const auto* const found = std::ranges::find(choices, *name, &Choice<Value>::name);
  if (found != choices.end()) return found->value;
  const auto all_but_last = std::span(choices).first(count - 1);
  throw UsageError(option + ": expected " +
                   text::join(all_but_last, ", ", &Choice<Value>::name) + " or " +
                   std::string(choices.back().name) + ", found " + shown(*name));
}

std::size_t number_of_jobs(const std::optional<std::string>& given, std::size_t usual) {
  if (!given) return usual;
  constexpr std::size_t most = 1000;
  std::size_t number = 0;
  const char* const end = given->data() + given->size();
  const auto [rest, failure] = std::from_chars(given->data(), end, number);
  if (failure != std::errc() || rest != end || number == 0 || number > most) {
    throw UsageError("--jobs: expected a number from 1 to 1000, found " + shown(*given));
  }
  return number;
}

// An option is never taken for one.
bool is_directory(std::string_view argument) {
  std::error_code failure;
  return !argument.empty() && !argument.starts_with('-') &&
         std::filesystem::is_directory(argument, failure);
}

// The option that was probably meant.
std::string_view meant_option(std::string_view argument) {
  std::vector<std::string_view> names;
  const auto add = [&names](const auto& each) { names.push_back(each.name); };
  std::ranges::for_each(actions, add);
  std::ranges::for_each(flags, add);
  std::ranges::for_each(values, add);
  return text::nearest(argument.substr(0, argument.find('=')), names);
}

// What is wrong with an argument that is none of the options.
UsageError unknown_option(std::string_view argument) {
  const std::string_view option = meant_option(argument);
  if (!option.empty() && argument.starts_with(std::string(option) + "=")) {
    return UsageError(std::string(option) + ": expected no value, found " +
                      shown(argument.substr(option.size() + 1)));
  }
  const std::string meant = option.empty() ? "" : ", perhaps " + std::string(option);
  const char* const expected =
      argument.starts_with('-') ? "an option" : "an option or a directory";
  return UsageError(shown(argument) + ": expected " + expected + meant + ", see --help");
}

std::string_view name_of(Action action) {
  if (action == Action::print_layout) return print_layout;
  return std::ranges::find(actions, action, &ActionSwitch::action)->name;
}

// Refuses what is meant for one repository beside several.
void require_one_repository(const Options& options) {
  if (options.root && !options.directories.empty()) {
    throw UsageError("--root: expected no directory beside it, found " +
                     shown(options.directories.front()));
  }
  if (options.directories.size() < 2 && !options.recursive) return;
  const auto refuse = [](bool is_given, const char* option) {
    if (is_given) {
      throw UsageError(std::string(option) +
                       ": expected one repository beside it, found several");
    }
  };
  refuse(options.registry.has_value(), "--registry");
  refuse(options.tools.has_value(), "--tools");
  refuse(options.save_tools.has_value(), "--save-tools");
  refuse(options.action == Action::print_model, "--print-model");
}

// Refuses what makes no sense together.
void require_consistency(const Options& options) {
  const auto require = [&options](bool is_given, std::string_view option, bool is_right,
                                  std::string_view expected) {
    if (!is_given || is_right) return;
    throw UsageError(std::string(option) + ": expected " + std::string(expected) +
                     " beside it, found " + std::string(name_of(options.action)));
  };
  const bool is_check = options.action == Action::check;
  const bool is_write = options.action == Action::write;
  require(options.quiet, "--quiet", is_check || is_write, "--check or --write");
  require(options.exit_code, "--exit-code", is_write, "--write");
  require(options.diff, "--diff", is_check, "--check");
  require(options.format.has_value(), "--format", is_check, "--check");
  require(options.color.has_value(), "--color", is_check, "--check");
  require(options.fail_on != FailOn::any, "--fail-on", is_check, "--check");
  require_one_repository(options);
  if (options.offline && (options.tools || options.save_tools)) {
    throw UsageError("--offline: expected neither --tools nor --save-tools beside it");
  }
  if (options.registry == "-" && options.tools == "-") {
    throw UsageError(
        "--registry --tools: expected one of them from standard input, found both");
  }
  if (options.diff && options.format == Format::github) {
    throw UsageError("--diff: expected --format text or json beside it, found github");
  }
}

// Refuses a second action.
void take_action(Action found, std::optional<Action>& action) {
  if (action && *action != found) {
    const auto [first, second] = std::minmax({*action, found});
    throw UsageError(std::string(name_of(first)) + " " + std::string(name_of(second)) +
                     ": expected one of them, found both");
  }
  action = found;
}

// The options with the given values; the action and the flags are set already.
Options with_values(Options options, const Given& given) {
  options.layout = given.print_layout.value_or("");
  options.root = given.root;
  options.registry = given.registry;
  options.tools = given.tools;
  options.save_tools = given.save_tools;
  options.timeout = seconds(given.timeout);
  options.format = chosen("--format", given.format, formats);
  options.color = chosen("--color", given.color, colors);
  options.fail_on = chosen("--fail-on", given.fail_on, severities).value_or(FailOn::any);
  options.jobs = number_of_jobs(given.jobs, options.jobs);
  return options;
}

}  // namespace

Options parse_options(std::span<const char* const> arguments) {
  Options options;
  Given given;
  std::optional<Action> action;
  for (Arguments rest(arguments); !rest.empty();) {
    const std::string_view argument = rest.take();
    const auto* const found = std::ranges::find(actions, argument, &ActionSwitch::name);
    const auto* const flag = std::ranges::find(flags, argument, &FlagSwitch::name);
    if (found != actions.end()) {
      if (found->action == Action::help || found->action == Action::version) {
        return {.action = found->action};
      }
      take_action(found->action, action);
    } else if (flag != flags.end()) {
      options.*(flag->flag) = true;
    } else if (take_any_value(argument, rest, given)) {
      continue;
    } else if (is_directory(argument)) {
      options.directories.emplace_back(argument);
    } else {
      throw unknown_option(argument);
    }
  }
  if (given.print_layout) take_action(Action::print_layout, action);
  if (!action) {
    throw UsageError(
        "registry-docs: expected --check, --write, --list or init, found none; see "
        "--help");
  }
  options.action = *action;
  options = with_values(std::move(options), given);
  require_consistency(options);
  return options;
}

}  // namespace gen_registry_docs
