// The command line.
#ifndef GEN_REGISTRY_DOCS_OPTIONS_H
#define GEN_REGISTRY_DOCS_OPTIONS_H

#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gen_registry_docs/arguments.h"

namespace gen_registry_docs {

enum class Action { check, write, list, print_model, print_layout, help, version };
enum class Format { text, json, github };
enum class Color { automatic, always, never };
enum class FailOn { any, breaking };  // what of a check's findings counts in its exit status

struct Options {
  Action action = Action::check;
  std::optional<std::string> root = {};  // the default is searched for
  std::vector<std::string> directories =
      {};                  // in its place: several, seen from the current one
  bool recursive = false;  // and every registry document below them
  std::optional<std::string> registry = {};    // the default lies under the root
  std::optional<std::string> tools = {};       // a saved answer, in place of asking the server
  std::optional<std::string> save_tools = {};  // where the answer is written down
  std::optional<std::chrono::milliseconds> timeout = {};  // for the server's answer
  std::string layout = {};                                // whose text is printed
  bool offline = false;   // start nothing: the snapshots take the servers' place
  bool strict = false;    // what of a schema cannot be read is an error
  std::size_t jobs = 32;  // servers that are asked at once
  FailOn fail_on = FailOn::any;
  bool diff = false;                  // of a check: show what a write would change
  std::optional<Format> format = {};  // of a check: of what it finds
  std::optional<Color> color = {};    // of a check: of the diff
  bool quiet = false;                 // say nothing of problems and files written
  bool exit_code = false;             // of a write: tell whether it wrote
};

// `arguments` without the program's name. Throws UsageError.
Options parse_options(std::span<const char* const> arguments);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_OPTIONS_H
