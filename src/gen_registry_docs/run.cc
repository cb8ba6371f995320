#include "gen_registry_docs/run.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "gen_registry_docs/heap.h"
#include "gen_registry_docs/list.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;

// The nearest directory, from the current one upward, that holds a registry file.
fs::path find_root() {
  std::error_code failure;
  const fs::path start = fs::current_path(failure);
  if (failure) throw registry_docs::FileError("the current directory", failure);
  for (fs::path directory = start;; directory = directory.parent_path()) {
    if (::access((directory / tesmo_sorvet::registry_path).c_str(), F_OK) == 0) {
      return directory;
    }
    if (directory == directory.parent_path()) break;
  }
  throw UsageError(start.string() + ": expected " + tesmo_sorvet::registry_path +
                   " here or in a directory above, found none; name the repository with "
                   "--root DIR");
}

void print(const std::string& text) {
  const bool is_whole = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!is_whole || std::fflush(stdout) != 0) {
    throw registry_docs::FileError("standard output", {errno, std::generic_category()});
  }
}

void print_lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  print(text);
}

// The text as one word of a shell's command line.
std::string shell_word(const std::string& text) {
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? "'\\''" : std::string(1, c);
  return word + "'";
}

std::string write_command(const Options& options) {
  std::string command = "gen_registry_docs --write";
  if (options.root) command += " --root " + shell_word(*options.root);
  if (options.registry) command += " --registry " + shell_word(*options.registry);
  return command;
}

// Tells a person at a terminal what to do about the problems.
void advise(const Options& options) {
  if (::isatty(STDERR_FILENO) == 0) return;
  print_error(
      "To bring the blocks up to date, first mend any markers that do not match, then run:");
  print_error("  " + write_command(options));
}

int check(const registry_docs::Host& host, const fs::path& root, const Options& options) {
  const std::vector<std::string> problems = registry_docs::stale_blocks(host, root);
  if (!options.quiet) print_lines(problems);
  if (problems.empty()) return 0;
  if (!options.quiet) advise(options);
  return 1;
}

int write(const registry_docs::Host& host, const fs::path& root, const Options& options) {
  try {
    const std::vector<std::string> written = registry_docs::write_blocks(host, root);
    if (!options.quiet) print_lines(written);
    return options.exit_code && !written.empty() ? 1 : 0;
  } catch (const registry_docs::ValueError& error) {
    print_error(error.what());
    return 1;
  }
}

int list(const registry_docs::Host& host, const fs::path& root) {
  print(block_list(registry_docs::report(host, root)));
  return 0;
}

int carry_out(const Options& options, const registry_docs::Host& host, const fs::path& root) {
  switch (options.action) {
    case Action::check:
      return check(host, root, options);
    case Action::write:
      return write(host, root, options);
    default:
      return list(host, root);
  }
}

}  // namespace

void print_error(std::string_view message) {
  const std::string line = registry_docs::visible(message) + "\n";
  static_cast<void>(std::fputs(line.c_str(), stderr));  // there is nowhere to say it failed
}

int run(const Options& options) {
  if (options.action == Action::help) return print(help_text), 0;
  if (options.action == Action::version) {
    return print("gen_registry_docs " REGISTRY_DOCS_VERSION "\n"), 0;
  }
  const fs::path root = options.root ? fs::path(*options.root) : find_root();
  ready_heap(options.registry ? fs::path(*options.registry)
                              : root / tesmo_sorvet::registry_path);
  const registry_docs::Host host = tesmo_sorvet::bind_host(root, options.registry);
  const int status = carry_out(options, host, root);
  // The system takes back the memory of a large registry at once. Giving it back piece by
  // piece first is a tenth of a check of 10,000 tools.
  std::_Exit(status);
}

}  // namespace gen_registry_docs
