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
std::optional<std::string> look_at(std::span<const GeneratedFile> generated,
                                   const fs::path& root, Files& files) {
  for (const GeneratedFile& each : generated) {
    files.push_back(registry_docs::report_file(each, root));
    if (auto refusal = advice::refusal(files.back())) return refusal;
  }
  return std::nullopt;
}

// Looks at the files behind the first that cannot be written, and says what has to be done to
// all of them; nothing when one of them cannot be looked at.
void print_what_to_do(std::span<const GeneratedFile> left, const fs::path& root, Files files,
                      const Options& options, std::string_view program,
                      std::string_view said) {
  try {
    for (const GeneratedFile& each : left) {
      files.push_back(registry_docs::report_file(each, root));
    }
  } catch (const std::exception&) {
    return;  // why nothing was written is said already
  }
  advice::print_next_steps(files, advice::steps(files), options, program, said);
}

}  // namespace

int write(std::span<const GeneratedFile> generated, const fs::path& root,
          const Options& options, std::string_view program) {
  Files files;
  if (const auto refusal = look_at(generated, root, files)) {
    print_error(*refusal);
    const auto left = generated.subspan(files.size());
    if (!options.quiet) print_what_to_do(left, root, files, options, program, *refusal);
    return 1;
  }
  const std::vector<std::string> written = registry_docs::write_files(files, root);
  if (!options.quiet) print_lines(written);
  return options.exit_code && !written.empty() ? 1 : 0;
}

}  // namespace gen_registry_docs
