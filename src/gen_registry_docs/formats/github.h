// The outcome of a check as GitHub's workflow commands, which annotate a change's files.
#ifndef GEN_REGISTRY_DOCS_FORMATS_GITHUB_H
#define GEN_REGISTRY_DOCS_FORMATS_GITHUB_H

#include <filesystem>
#include <span>
#include <string>

#include "gen_registry_docs/advice/advice.h"
#include "registry/host.h"
#include "registry_docs/report.h"

namespace gen_registry_docs::formats {

// One annotation for each file with a problem, at the line where a person has to begin: the
// problem line, and below it the steps, which are given file by file. The paths of `root`,
// where the files lie, are shown relative to `top`, the top of the repository that is
// annotated.
std::string github_report(std::span<const registry_docs::FileReport> files,
                          std::span<const advice::Steps> steps,
                          const std::filesystem::path& root, const std::filesystem::path& top);

// One annotation for each change of a server, at its snapshot: an error for one that breaks
// something, a notice for any other.
std::string github_changes(std::span<const registry::ServerChange> changes,
                           const std::filesystem::path& root,
                           const std::filesystem::path& top);

// The annotation of a check that could not do its work, at the file that the message begins
// with, if it does.
std::string github_failure(const std::string& message, const std::filesystem::path& top);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_GITHUB_H
