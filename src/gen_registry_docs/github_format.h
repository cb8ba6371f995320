// The outcome of a check as GitHub's workflow commands, which annotate a change's files.
#ifndef GEN_REGISTRY_DOCS_GITHUB_FORMAT_H
#define GEN_REGISTRY_DOCS_GITHUB_FORMAT_H

#include <filesystem>
#include <span>
#include <string>

#include "registry_docs/report.h"

namespace gen_registry_docs {

// One annotation for each file with a problem, at the line where a person has to begin: the
// problem line, and below it the advice. The paths of `root`, where the files lie, are shown
// relative to `top`, the top of the repository that is annotated.
std::string github_report(std::span<const registry_docs::FileReport> files,
                          const std::filesystem::path& root, const std::filesystem::path& top);

// The annotation of a check that could not do its work, at the file that the message begins
// with, if it does.
std::string github_failure(const std::string& message, const std::filesystem::path& top);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_GITHUB_FORMAT_H
