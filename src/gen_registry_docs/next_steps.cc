#include "gen_registry_docs/next_steps.h"

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

#include "gen_registry_docs/advice.h"
#include "gen_registry_docs/output.h"

namespace gen_registry_docs {
namespace {

using registry_docs::FileReport;
using registry_docs::FileState;

bool is_plain(char c) {
  constexpr std::string_view signs = "_@%+=:,./-";
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         signs.find(c) != std::string_view::npos;
}

// The text as one word of a shell's command line.
std::string shell_word(std::string_view text) {
  if (!text.empty() && std::ranges::all_of(text, is_plain)) return std::string(text);
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? "'\\''" : std::string(1, c);
  return word + "'";
}

std::string write_command(const Options& options, std::string_view program) {
  std::string command = shell_word(program) + " --write";
  if (options.root) command += " --root " + shell_word(*options.root);
  if (options.registry) command += " --registry " + shell_word(*options.registry);
  if (options.tools) command += " --tools " + shell_word(*options.tools);
  return command;
}

}  // namespace

void print_next_steps(std::span<const FileReport> files, const Options& options,
                      std::string_view program, std::string_view said) {
  bool is_writable = true;
  bool is_current = true;
  for (const FileReport& file : files) {
    const std::vector<std::string> lines = advice_lines(file);
    for (const std::string& line : lines) {
      if (line != said) print_error(line);
    }
    const bool is_stale = file.state == FileState::stale;
    is_current = is_current && file.state == FileState::current;
    is_writable =
        is_writable && lines.empty() && (is_stale || file.state == FileState::current);
  }
  if (is_current) return;
  const std::string input = options.registry == "-" ? ", with the registry as input"
                            : options.tools == "-"  ? ", with the tools as input"
                                                    : "";
  print_error((is_writable ? "To bring the blocks up to date, run"
                           : "When that is mended, bring the blocks up to date") +
              input + ":");
  print_error("  " + write_command(options, program));
}

void print_next_steps(const registry_docs::Host& host, const std::filesystem::path& root,
                      const Options& options, std::string_view program,
                      std::string_view said) {
  std::vector<FileReport> files;
  try {
    files = registry_docs::report(host, root);
  } catch (const std::exception&) {
    return;  // what the files were when the problem was found is said already
  }
  print_next_steps(files, options, program, said);
}

}  // namespace gen_registry_docs
