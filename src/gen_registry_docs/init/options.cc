#include "gen_registry_docs/init/options.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "registry_docs/layouts/builtin.h"
#include "registry_docs/text.h"
#include "text/join.h"
#include "text/nearest.h"

namespace gen_registry_docs::init {
namespace {

constexpr std::array<std::string_view, 7> names = {
    "--root", "--markers", "--heading", "--server", "--dry-run", "--timeout", "--help"};

// The layouts of blocks that are for a whole server, and not for one of its tools.
std::vector<std::string_view> layouts() {
  std::vector<std::string_view> all;
  for (const auto& layout : registry_docs::layouts::builtin_layouts()) {
    if (layout.name != "tool") all.push_back(layout.name);
  }
  return all;
}

bool is_of_documents(std::string_view path) {
  return path.starts_with("docs/") || path.find("/docs/") != std::string_view::npos;
}

void require_path(const std::string& path, std::string_view given) {
  const bool leads_out = path.starts_with('/') || path == ".." || path.starts_with("../");
  if (!path.empty() && !leads_out && path != "." && !path.ends_with('/') &&
      registry_docs::visible(path) == path) {
    return;
  }
  throw UsageError(
      "--markers: expected a file within the repository, as in docs/tools.md, found " +
      shown(given));
}

// FILE or FILE:LAYOUT.
Wanted wanted(std::string_view given) {
  const std::size_t colon = given.rfind(':');
  const std::string_view file = given.substr(0, colon);
  const std::string path = std::filesystem::path(file).lexically_normal().generic_string();
  require_path(path, file);
  if (colon == std::string_view::npos) {
    return {.path = path, .layout = is_of_documents(path) ? "reference" : "tools"};
  }
  const std::string_view layout = given.substr(colon + 1);
  const auto all = layouts();
  if (std::ranges::find(all, layout) == all.end()) {
    throw UsageError("--markers: expected one of the layouts " + text::join(all, ", ") +
                     " behind the colon, found " + shown(layout));
  }
  return {.path = path, .layout = std::string(layout)};
}

void add_markers(std::vector<Wanted>& markers, std::string_view given) {
  Wanted added = wanted(given);
  for (const Wanted& each : markers) {
    if (each.path == added.path && each.layout == added.layout) {
      throw UsageError("--markers: expected distinct blocks, found " +
                       shown(each.path + ":" + each.layout) + " again");
    }
  }
  markers.push_back(std::move(added));
}

// A heading is that of the block before it.
void add_heading(std::vector<Wanted>& markers, std::string heading) {
  if (markers.empty()) throw UsageError("--heading: expected --markers before it, found none");
  if (markers.back().heading) {
    throw UsageError("--heading: expected one for each --markers, found a second for " +
                     shown(markers.back().path));
  }
  markers.back().heading = std::move(heading);
}

bool take_repeated(std::string_view argument, Arguments& rest, std::vector<Wanted>& markers) {
  std::optional<std::string> value;
  if (take_value("--markers", argument, rest, value)) {
    add_markers(markers, *value);
  } else if (take_value("--heading", argument, rest, value)) {
    add_heading(markers, *value);
  }
  return value.has_value();
}

std::vector<std::string> command_of(Arguments& rest) {
  std::vector<std::string> command;
  while (!rest.empty()) command.emplace_back(rest.take());
  if (command.empty() || command.front().empty()) {
    throw UsageError("--: expected a command behind it, found nothing");
  }
  return command;
}

UsageError unknown_option(std::string_view argument) {
  if (!argument.starts_with('-')) {
    return UsageError(shown(argument) +
                      ": expected an option of init, or -- before a command");
  }
  const auto meant = text::nearest(argument.substr(0, argument.find('=')), names);
  return UsageError(shown(argument) + ": expected an option of init" +
                    (meant.empty() ? "" : ", perhaps " + std::string(meant)) + ", see --help");
}

// The registry is written in it.
void require_text(std::string_view argument) {
  if (const auto at = registry_docs::find_ill_formed(argument)) {
    throw UsageError(shown(argument) +
                     ": expected UTF-8, found an ill-formed sequence at byte " +
                     std::to_string(*at));
  }
}

}  // namespace

bool is_named(std::span<const char* const> arguments) {
  return !arguments.empty() && std::string_view(arguments.front()) == "init";
}

Options parse_options(std::span<const char* const> arguments) {
  std::ranges::for_each(arguments, require_text);
  Options options;
  std::optional<std::string> timeout;
  for (Arguments rest(arguments); !rest.empty();) {
    const std::string_view argument = rest.take();
    if (argument == "--help" || argument == "-h") return {.help = true};
    if (argument == "--") {
      options.command = command_of(rest);
    } else if (argument == "--dry-run") {
      options.dry_run = true;
    } else if (!take_repeated(argument, rest, options.markers) &&
               !take_value("--root", argument, rest, options.root) &&
               !take_value("--server", argument, rest, options.server) &&
               !take_value("--timeout", argument, rest, timeout)) {
      throw unknown_option(argument);
    }
  }
  options.timeout = seconds(timeout);
  if (options.server && !options.command.empty()) {
    throw UsageError("--server: expected no command beside it, found " +
                     shown(options.command.front()));
  }
  return options;
}

}  // namespace gen_registry_docs::init
