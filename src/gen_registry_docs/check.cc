#include "gen_registry_docs/check.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "gen_registry_docs/advice/next_steps.h"
#include "gen_registry_docs/advice/undeclared.h"
#include "gen_registry_docs/diff/unified_diff.h"
#include "gen_registry_docs/formats/changes.h"
#include "gen_registry_docs/formats/github.h"
#include "gen_registry_docs/formats/json.h"
#include "gen_registry_docs/output.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "registry_docs/text.h"
#include "text/join.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;
using registry_docs::FileReport;
using registry_docs::FileState;
using Files = std::vector<FileReport>;

diff::Colors colors_of(const Options& options) {
  switch (options.color.value_or(Color::automatic)) {
    case Color::always:
      return diff::Colors::ansi;
    case Color::never:
      return diff::Colors::none;
    case Color::automatic:
      break;
  }
  const char* const no_color = std::getenv("NO_COLOR");
  const char* const terminal = std::getenv("TERM");
  const bool is_refused = (no_color != nullptr && *no_color != '\0') ||
                          (terminal != nullptr && std::string_view(terminal) == "dumb");
  return !is_refused && ::isatty(STDOUT_FILENO) != 0 ? diff::Colors::ansi : diff::Colors::none;
}

// The diff of each file, empty for those that are not stale.
std::vector<std::string> diffs_of(const Files& files, const fs::path& root,
                                  diff::Colors colors) {
  std::vector<std::string> diffs(files.size());
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].state != FileState::stale) continue;
    const std::string bytes =
        files[i].is_new ? std::string()
                        : registry_docs::read_bytes(root / files[i].path,
                                                    registry_docs::FileKind::regular);
    diffs[i] = diff::unified_diff(files[i], bytes, colors);
  }
  return diffs;
}

// The problem lines, each with its file's diff if there are any, and what changed of its
// server if the file keeps that.
std::string text_report(const Files& files, const std::vector<std::string>& diffs,
                        const Workspace& workspace) {
  std::string text;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (files[i].state == FileState::current) continue;
    text += files[i].problem + "\n";
    for (const registry::ServerChange& change : workspace.changes) {
      if (change.path == files[i].path) text += formats::line_of(change) + "\n";
    }
    if (!diffs.empty()) text += diffs[i];
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

std::string github_failures(const Workspace& workspace) {
  std::string commands;
  for (const std::string& failure : workspace.failures) {
    commands += formats::github_failure(failure, annotated_top());
  }
  return commands;
}

std::string shown(const Files& files, const std::vector<advice::Steps>& steps,
                  const Workspace& workspace, const Options& options) {
  const Format format = options.format.value_or(Format::text);
  const fs::path& root = workspace.root;
  if (format == Format::github) {
    return formats::github_report(files, steps, root, annotated_top()) +
           formats::github_changes(workspace.changes, root, annotated_top()) +
           github_failures(workspace);
  }
  const auto colors = format == Format::text ? colors_of(options) : diff::Colors::none;
  const auto diffs = options.diff ? diffs_of(files, root, colors) : std::vector<std::string>();
  if (format == Format::text) return text_report(files, diffs, workspace);
  return formats::json_report(files, diffs, workspace.changes,
                              text::join(workspace.failures, "\n"));
}

bool has_problem(const FileReport& file) { return file.state != FileState::current; }

// What could be declared, of one repository alone: of many it would be too much to read.
void print_advice(const Files& files, const Workspace& workspace) {
  if (!workspace.is_one || workspace.bound.empty()) return;
  for (const std::string& line :
       advice::undeclared(files, workspace.bound.front(), workspace.root)) {
    print_error(line);
  }
}

bool is_breaking(const registry::ServerChange& change) {
  return change.change.verdict == registry_docs::changes::Verdict::breaking;
}

int status_of(bool is_current, const Workspace& workspace, const Options& options) {
  if (!workspace.failures.empty()) return 2;
  if (options.fail_on == FailOn::breaking) {
    return std::ranges::any_of(workspace.changes, is_breaking) ? 1 : 0;
  }
  return is_current ? 0 : 1;
}

}  // namespace

int check(Workspace& workspace, const Options& options, std::string_view program) {
  // Only JSON tells of current blocks; most checks find no others.
  const auto detail = options.format == Format::json ? registry_docs::Detail::everything
                                                     : registry_docs::Detail::problems;
  const Files files = report(workspace, detail);
  const bool is_current = std::ranges::none_of(files, has_problem);
  const bool is_shown =
      !is_current || options.format == Format::json || !workspace.failures.empty();
  if (is_shown && !options.quiet) {
    const std::vector<advice::Steps> steps = advice::steps(files);
    print(shown(files, steps, workspace, options));
    advice::print_next_steps(files, steps, options, program);
  }
  if (!options.quiet) print_advice(files, workspace);
  for (const std::string& failure : workspace.failures) print_error_lines(failure);
  return status_of(is_current, workspace, options);
}

void print_failure(const std::string& message, const Options& options) {
  if (options.quiet || options.action != Action::check) return;
  if (options.format == Format::json) print(formats::json_failure(message));
  if (options.format == Format::github)
    print(formats::github_failure(message, annotated_top()));
}

}  // namespace gen_registry_docs
