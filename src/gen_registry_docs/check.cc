#include "gen_registry_docs/check.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "gen_registry_docs/github_format.h"
#include "gen_registry_docs/json_format.h"
#include "gen_registry_docs/next_steps.h"
#include "gen_registry_docs/output.h"
#include "gen_registry_docs/unified_diff.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;
using registry_docs::FileReport;
using registry_docs::FileState;
using Files = std::vector<FileReport>;

Colors colors_of(const Options& options) {
  switch (options.color.value_or(Color::automatic)) {
    case Color::always:
      return Colors::ansi;
    case Color::never:
      return Colors::none;
    case Color::automatic:
      break;
  }
  const char* const no_color = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool is_refused = (no_color != nullptr && *no_color != '\0') ||
                          (terminal != nullptr && std::string_view(terminal) == "dumb");
  return !is_refused && ::isatty(STDOUT_FILENO) != 0 ? Colors::ansi : Colors::none;
}

// The diff of each file, empty for those that are not stale.
std::vector<std::string> diffs_of(const Files& files, const fs::path& root, Colors colors) {
  std::vector<std::string> diffs(files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].state != FileState::stale) continue;
    const std::string bytes =
        registry_docs::read_bytes(root / files[i].path, registry_docs::FileKind::regular);
    diffs[i] = unified_diff(files[i], bytes, colors);
  }
  return diffs;
}

std::string text_report(const Files& files, const std::vector<std::string>& diffs) {
  std::string text;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].state != FileState::current) text += files[i].problem + "\n" + diffs[i];
  }
  return text;
}

// The top of the repository that is annotated: the directory of GitHub's run, or else the
// current one.
fs::path annotated_top() {
  const char* const workspace = std::getenv("GITHUB_WORKSPACE");
  const bool is_known = workspace != nullptr && *workspace != '\0';
  std::error_code failure;
  return is_known ? fs::path(workspace) : fs::current_path(failure);
}

std::string shown(const Files& files, const fs::path& root, const Options& options) {
  if (options.format == Format::github) return github_report(files, root, annotated_top());
  if (options.format == Format::json) {
    return json_report(files, options.diff ? diffs_of(files, root, Colors::none)
                                           : std::vector<std::string>());
  }
  return text_report(files, diffs_of(files, root, colors_of(options)));
}

// Most checks find nothing and show nothing else: they are made without particulars.
bool needs_particulars(const Options& options) {
  const bool is_plain = options.format.value_or(Format::text) == Format::text && !options.diff;
  return !is_plain && !options.quiet;
}

int check_plainly(const registry_docs::Host& host, const fs::path& root,
                  const Options& options, std::string_view program) {
  const std::vector<std::string> problems = registry_docs::stale_blocks(host, root);
  if (problems.empty()) return 0;
  if (!options.quiet) {
    print_lines(problems);
    print_next_steps(host, root, options, program);
  }
  return 1;
}

}  // namespace

int check(const registry_docs::Host& host, const fs::path& root, const Options& options,
          std::string_view program) {
  if (!needs_particulars(options)) return check_plainly(host, root, options, program);
  const Files files = registry_docs::report(host, root);
  print(shown(files, root, options));
  print_next_steps(files, options, program);
  const auto is_current = [](const FileReport& file) {
    return file.state == FileState::current;
  };
  return std::ranges::all_of(files, is_current) ? 0 : 1;
}

void print_failure(const std::string& message, const Options& options) {
  if (options.quiet || options.action != Action::check) return;
  if (options.format == Format::json) print(json_failure(message));
  if (options.format == Format::github) print(github_failure(message, annotated_top()));
}

}  // namespace gen_registry_docs
