#include "gen_registry_docs/write.h"

#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gen_registry_docs/advice/advice.h"
#include "gen_registry_docs/advice/next_steps.h"
#include "gen_registry_docs/output.h"
#include "registry_docs/report.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;
using registry_docs::FileReport;
using registry_docs::GeneratedFile;
using Files = std::vector<FileReport>;

// Looks at the files one after the other, up to the first that cannot be written, and says
// why.
std::optional<std::string> look_at(std::span<const GeneratedFile* const> generated,
                                   const fs::path& root, Files& files) {
  for (const GeneratedFile* const each : generated) {
    files.push_back(registry_docs::report_file(*each, root));
    if (auto refusal = advice::refusal(files.back())) return refusal;
  }
  return std::nullopt;
}

// Looks at the files behind the first that cannot be written, and says what has to be done to
// all of them; nothing when one of them cannot be looked at.
void print_what_to_do(std::span<const GeneratedFile* const> left, const fs::path& root,
                      Files files, const Options& options, std::string_view program,
                      std::string_view said) {
  try {
    for (const GeneratedFile* const each : left) {
      files.push_back(registry_docs::report_file(*each, root));
    }
  } catch (const std::exception&) {
    return;  // why nothing was written is said already
  }
  advice::print_next_steps(files, advice::steps(files), options, program, said);
}

// Those of all repositories.
std::vector<const GeneratedFile*> all_files(const Workspace& workspace) {
  std::vector<const GeneratedFile*> all;
  for (const auto& files : workspace.files) {
    for (const GeneratedFile& file : files) all.push_back(&file);
  }
  return all;
}

}  // namespace

int write(const Workspace& workspace, const Options& options, std::string_view program) {
  for (const std::string& failure : workspace.failures) print_error_lines(failure);
  if (!workspace.failures.empty()) return 2;
  const std::vector<const GeneratedFile*> all = all_files(workspace);
  const std::span<const GeneratedFile* const> generated(all);
  Files files;
  if (const auto refusal = look_at(generated, workspace.root, files)) {
    print_error(*refusal);
    const auto left = generated.subspan(files.size());
    if (!options.quiet) {
      print_what_to_do(left, workspace.root, files, options, program, *refusal);
    }
    return 1;
  }
  const std::vector<std::string> written = registry_docs::write_files(files, workspace.root);
  if (!options.quiet) print_lines(written);
  return options.exit_code && !written.empty() ? 1 : 0;
}

}  // namespace gen_registry_docs
