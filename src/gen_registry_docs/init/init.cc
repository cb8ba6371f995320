#include "gen_registry_docs/init/init.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "gen_registry_docs/answer.h"
#include "gen_registry_docs/diff/unified_diff.h"
#include "gen_registry_docs/help.h"
#include "gen_registry_docs/init/find_start.h"
#include "gen_registry_docs/init/mark_files.h"
#include "gen_registry_docs/init/registry_text.h"
#include "gen_registry_docs/init/write_all.h"
#include "gen_registry_docs/output.h"
#include "gen_registry_docs/shell_word.h"
#include "registry/documents.h"
#include "registry/host.h"
#include "registry_docs/errors.h"

namespace gen_registry_docs::init {
namespace {

namespace fs = std::filesystem;
using registry_docs::FileReport;
using registry_docs::InputError;

// A server that did not answer. The message has several lines.
class NoAnswer : public InputError {
 public:
  using InputError::InputError;
};

// All that is to be written.
struct Plan {
  std::string registry;
  std::vector<FileReport> files;
};

void require_no_registry(const fs::path& root) {
  if (!root.empty() && !fs::is_directory(root)) {
    throw InputError(root.string() + ": expected a directory, found none");
  }
  if (const auto found = registry::find_registry(root)) {
    throw InputError(found->string() +
                     ": expected no registry yet, found one; edit it instead");
  }
}

// Without files that get markers the README is declared as it stands.
std::vector<Declared> declared_files(const std::vector<MarkedFile>& marked,
                                     const fs::path& root) {
  std::vector<Declared> files;
  files.reserve(marked.size());
  for (const MarkedFile& each : marked) files.push_back({each.report.path, each.blocks});
  if (!files.empty()) return files;
  if (!fs::exists(root / "README.md")) {
    throw UsageError(
        "--markers: expected a file for the list of tools, found none given and no " +
        (root / "README.md").string());
  }
  return {{"README.md", {{"tools", 2}}}};
}

// This command with what was given, but for the server's.
std::string command_line(const Options& options, std::string_view program) {
  std::string line = shell_word(program) + " init";
  if (options.root) line += " --root " + shell_word(*options.root);
  for (const Wanted& each : options.markers) {
    line += " --markers " + shell_word(each.path + ":" + each.layout);
    if (each.heading) line += " --heading " + shell_word(*each.heading);
  }
  return line;
}

// How the server was started, and how that can be said otherwise.
std::string advice(const Start& start, const Options& options, std::string_view program) {
  if (start.said_by.empty()) return {};
  return "\nThis is how " + start.said_by +
         " starts it. If that is another server, or lacks arguments, give the command:\n  " +
         command_line(options, program) + " -- COMMAND ARG...";
}

registry::Answer answer_of(const registry::Repository& repository, const Start& start,
                           const Options& options, std::string_view program) {
  registry::Server server = registry::server_of(repository, repository.sources.front());
  const fs::path top = repository.root.empty() ? fs::path(".") : repository.root;
  server.cwd = (top / server.cwd.value_or("")).string();
  gen_registry_docs::Options asking;
  asking.timeout = options.timeout;
  Asked asked = std::move(ask({&server, 1}, asking).front());
  if (!asked.failure.empty()) {
    throw NoAnswer(asked.failure + advice(start, options, program));
  }
  return {.name = "the answer of " + server.label, .json = std::move(asked.answer)};
}

// Says which server it was, unless its command was given.
void print_server(const Start& start, const registry::Bound& bound) {
  if (start.said_by.empty()) return;
  const std::size_t count = bound.layouts.front()->catalog().tools.size();
  std::string what = start.client;
  if (what.empty()) {
    what = start.command;
    for (const std::string& each : start.args) what += " " + each;
  }
  print_error(start.said_by + ": started " + what + ", which offers " + std::to_string(count) +
              (count == 1 ? " tool" : " tools"));
}

// Has the registry read, the server asked and the lists bound, as a check will.
void prove(const std::string& registry, const fs::path& root, const Start& start,
           const Options& options, std::string_view program) {
  const auto document =
      std::make_shared<json::Document>((root / registry::registry_path).string(), registry);
  const auto repository = registry::open_repository(root, {.document = document});
  std::vector<std::optional<registry::Answer>> answers;
  answers.emplace_back(answer_of(repository, start, options, program));
  const registry::Bound bound = registry::bind(repository, std::move(answers));
  for (const std::string& warning : bound.warnings) print_error(warning);
  print_server(start, bound);
}

Plan plan(const Options& options, const fs::path& root, std::string_view program) {
  require_no_registry(root);
  std::vector<MarkedFile> marked = mark_files(root, options.markers);
  const std::vector<Declared> files = declared_files(marked, root);
  const Start start = find_start(root, options);
  Plan plan{.registry = registry_text(files, start), .files = {}};
  prove(plan.registry, root, start, options, program);
  for (MarkedFile& each : marked) plan.files.push_back(std::move(each.report));
  return plan;
}

void show(const Plan& plan) {
  std::string text = std::string(registry::registry_path) + ":\n" + plan.registry;
  for (const FileReport& file : plan.files) {
    text += diff::unified_diff(file, file.bytes, diff::Colors::none);
  }
  print(text);
}

std::vector<std::string> write(Plan plan, const fs::path& root) {
  FileReport registry{.path = registry::registry_path, .text = std::move(plan.registry)};
  registry.is_new = true;
  plan.files.insert(plan.files.begin(), std::move(registry));
  write_all(plan.files, root);
  std::vector<std::string> paths;
  for (const FileReport& file : plan.files) paths.push_back(file.path);
  return paths;
}

void print_next_step(const Options& options, std::string_view program) {
  const bool has_markers = !options.markers.empty();
  print_error(has_markers ? "To fill the blocks, run:"
                          : "To see which markers README.md lacks, run:");
  print_error("  " + shell_word(program) + (has_markers ? " --write" : " --check") +
              (options.root ? " --root " + shell_word(*options.root) : ""));
}

}  // namespace

int run(const Options& options, std::string_view program) {
  if (options.help) return print(help_text), 0;
  const fs::path root = options.root.value_or("");
  try {
    Plan made = plan(options, root, program);
    if (options.dry_run) return show(made), 0;
    print_lines(write(std::move(made), root));
  } catch (const NoAnswer& error) {
    print_error_lines(error.what());
    return 2;
  }
  print_next_step(options, program);
  return 0;
}

}  // namespace gen_registry_docs::init
