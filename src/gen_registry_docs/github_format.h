// The outcome of a check as GitHub's workflow commands, which annotate a change's files.
#ifndef GEN_REGISTRY_DOCS_GITHUB_FORMAT_H
#define GEN_REGISTRY_DOCS_GITHUB_FORMAT_H

#include <filesystem>
#include <span>
#include <string>

#include "registry_docs/report.h"

namespace gen_registry_docs {

// One annotation for each file with a problem, at its first block that is not current: the
// problem line, and below it the advice. `root`, where the files lie, is relative to the
// top of the change's repository.
std::string github_report(std::span<const registry_docs::FileReport> files,
                          const std::filesystem::path& root);

// The annotation of a check that could not do its work.
std::string github_failure(const std::string& message);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_GITHUB_FORMAT_H
