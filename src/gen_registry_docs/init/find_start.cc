#include "gen_registry_docs/init/find_start.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "gen_registry_docs/init/clients_file.h"
#include "gen_registry_docs/init/package_json.h"
#include "gen_registry_docs/init/pyproject.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "text/join.h"

namespace gen_registry_docs::init {
namespace {

namespace fs = std::filesystem;
using registry_docs::InputError;

constexpr std::string_view with_command = "registry-docs init -- COMMAND ARG...";

std::string names_of(const std::vector<Entry>& entries) {
  return registry_docs::visible(text::join(entries, ", ", &Entry::name));
}

const Entry* find(const Entries& entries, std::string_view name) {
  const auto found = std::ranges::find(entries.all, name, &Entry::name);
  return found == entries.all.end() ? nullptr : &*found;
}

// The one that is meant where nobody says which. Several names of one program are one.
const Entry& only_one(const Entries& entries) {
  const Entry& first = entries.all.front();
  const bool are_same = std::ranges::all_of(
      entries.all, [&](const Entry& each) { return each.start == first.start; });
  if (are_same) return first;
  if (const Entry* const own = find(entries, entries.own_name)) return *own;
  const std::string own = registry_docs::visible(entries.own_name);
  throw InputError(entries.place + ": expected one server" +
                   (own.empty() ? "" : ", or one that is called " + own) + ", found " +
                   names_of(entries.all) + "; name one with --server NAME");
}

[[noreturn]] void refuse_name(const std::string& name, const std::vector<Entry>& seen) {
  throw UsageError(
      "--server: expected " +
      (seen.empty() ? "a file that names servers, see --help" : "one of " + names_of(seen)) +
      ", found " + shown(name));
}

Start startable(const Entry& entry) {
  if (!entry.start.fault.empty()) throw InputError(entry.start.fault);
  return entry.start;
}

Start started_by(const std::vector<std::string>& command) {
  return {.said_by = {},
          .client = {},
          .command = command.front(),
          .args = {command.begin() + 1, command.end()}};
}

}  // namespace

Start find_start(const fs::path& root, const Options& options) {
  if (!options.command.empty()) return started_by(options.command);
  constexpr std::array read = {entries_of_clients_file, entries_of_package_json,
                               entries_of_pyproject};
  std::vector<Entry> seen;
  for (const auto entries_of : read) {
    Entries entries = entries_of(root);
    if (entries.all.empty()) continue;
    if (!options.server) return startable(only_one(entries));
    if (const Entry* const named = find(entries, *options.server)) return startable(*named);
    std::ranges::move(entries.all, std::back_inserter(seen));
  }
  if (options.server) refuse_name(*options.server, seen);
  throw InputError((root.empty() ? "." : root.string()) +
                   ": expected a server in .mcp.json, in \"bin\" of package.json or in "
                   "[project.scripts] of pyproject.toml, found none; give its command: " +
                   std::string(with_command));
}

}  // namespace gen_registry_docs::init
