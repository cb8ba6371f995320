#include "gen_registry_docs/advice/next_steps.h"

#include <string>
#include <vector>

#include "gen_registry_docs/output.h"
#include "gen_registry_docs/shell_word.h"

namespace gen_registry_docs::advice {
namespace {

using registry_docs::FileReport;
using registry_docs::FileState;

std::string write_command(const Options& options, std::string_view program) {
  std::string command = shell_word(program) + " --write";
  if (options.root) command += " --root " + shell_word(*options.root);
  if (options.registry) command += " --registry " + shell_word(*options.registry);
  if (options.tools) command += " --tools " + shell_word(*options.tools);
  if (options.offline) command += " --offline";
  if (options.recursive) command += " --recursive";
  for (const std::string& directory : options.directories) {
    command += " " + shell_word(directory);
  }
  return command;
}

}  // namespace

void print_next_steps(std::span<const FileReport> files, std::span<const Steps> steps,
                      const Options& options, std::string_view program,
                      std::string_view said) {
  bool is_writable = true;
  bool is_current = true;
  for (std::size_t i = 0; i < files.size(); ++i) {
    for (const std::string& line : lines(steps[i])) {
      if (line != said) print_error(line);
    }
    const FileState state = files[i].state;
    is_current = is_current && state == FileState::current;
    is_writable = is_writable && steps[i].empty() &&
                  (state == FileState::stale || state == FileState::current);
  }
  if (is_current) return;
  const std::string input = options.registry == "-" ? ", with the registry as input"
                            : options.tools == "-"  ? ", with the tools as input"
                                                    : "";
  print_error((is_writable ? "To bring the blocks up to date, run"
                           : "When that is fixed, bring the blocks up to date") +
              input + ":");
  print_error("  " + write_command(options, program));
}

}  // namespace gen_registry_docs::advice
