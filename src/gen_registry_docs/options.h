// The command line.
#ifndef GEN_REGISTRY_DOCS_OPTIONS_H
#define GEN_REGISTRY_DOCS_OPTIONS_H

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

enum class Action { check, write, list, help, version };

struct Options {
  Action action = Action::check;
  std::optional<std::string> root = {};      // the default is searched for
  std::optional<std::string> registry = {};  // the default lies under the root
  bool quiet = false;                        // say nothing of problems and files written
  bool exit_code = false;                    // of a write: tell whether it wrote
};

// `arguments` without the program's name. Throws UsageError.
Options parse_options(std::span<const char* const> arguments);

extern const char* const help_text;

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_OPTIONS_H
