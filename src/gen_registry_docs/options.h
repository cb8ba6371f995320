// The command line.
#ifndef GEN_REGISTRY_DOCS_OPTIONS_H
#define GEN_REGISTRY_DOCS_OPTIONS_H

#include <chrono>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace gen_registry_docs {

// A command line that cannot be carried out. The message begins with what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Action { check, write, list, print_model, print_layout, help, version };
enum class Format { text, json, github };
enum class Color { automatic, always, never };

struct Options {
  Action action = Action::check;
  std::optional<std::string> root = {};        // the default is searched for
  std::optional<std::string> registry = {};    // the default lies under the root
  std::optional<std::string> tools = {};       // a saved answer, in place of asking the server
  std::optional<std::string> save_tools = {};  // where the answer is written down
  std::optional<std::chrono::milliseconds> timeout = {};  // for the server's answer
  std::string layout = {};                                // whose text is printed
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
