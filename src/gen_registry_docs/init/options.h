// The command line of `registry-docs init`.
#ifndef GEN_REGISTRY_DOCS_INIT_OPTIONS_H
#define GEN_REGISTRY_DOCS_INIT_OPTIONS_H

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gen_registry_docs/arguments.h"

namespace gen_registry_docs::init {

// A block that a file is given.
struct Wanted {
  std::string path;  // within the repository, "/"-separated
  std::string layout;
  std::optional<std::string> heading = {};  // the text of the one that it stands below
};

struct Options {
  bool help = false;
  bool dry_run = false;
  std::optional<std::string> root = {};    // the default is the current directory
  std::optional<std::string> server = {};  // the name of one among several
  std::optional<std::chrono::milliseconds> timeout = {};
  std::vector<Wanted> markers = {};
  std::vector<std::string> command = {};  // with its arguments; the default is looked for
};

// Whether the arguments, without the program's name, are those of this command.
bool is_named(std::span<const char* const> arguments);

// The arguments behind the command's name. Throws UsageError.
Options parse_options(std::span<const char* const> arguments);

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_OPTIONS_H
