#include "gen_registry_docs/next_steps.h"

#include <algorithm>
#include <string>

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
  return command;
}

}  // namespace

void print_next_steps(std::span<const FileReport> files, const Options& options,
                      std::string_view program) {
  for (const FileReport& file : files) {
    for (const Step& step : advice(file)) {
      for (const std::string& line : step_lines(step)) print_error(line);
    }
  }
  const auto is_stale = [](const FileReport& file) { return file.state == FileState::stale; };
  const auto is_current = [](const FileReport& file) {
    return file.state == FileState::current;
  };
  if (std::ranges::all_of(files, is_current)) return;
  const bool is_writable = std::ranges::all_of(
      files, [&](const FileReport& file) { return is_current(file) || is_stale(file); });
  print_error(is_writable ? "To bring the blocks up to date, run:"
                          : "When that is mended, bring the blocks up to date:");
  print_error("  " + write_command(options, program));
}

}  // namespace gen_registry_docs
