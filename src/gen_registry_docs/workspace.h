// All that one run looks at: repositories, and what their servers answered.
#ifndef GEN_REGISTRY_DOCS_WORKSPACE_H
#define GEN_REGISTRY_DOCS_WORKSPACE_H

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "gen_registry_docs/options.h"
#include "registry/host.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"

namespace gen_registry_docs {

struct Workspace {
  // What the paths of files are relative to; empty for the current directory.
  std::filesystem::path root = {};
  std::vector<registry::Bound> bound = {};  // whose renderers the files borrow
  // Of each repository.
  std::vector<std::vector<registry_docs::GeneratedFile>> files = {};
  std::vector<registry::ServerChange> changes = {};
  std::vector<std::string> warnings = {};
  // Why a repository, or one of several servers, is left out; some have several lines.
  std::vector<std::string> failures = {};
  bool is_one = true;  // repository
};

// Opens every repository, asks all servers side by side and binds what they answered. Writes
// an answer down if that was asked for. Throws UsageError, and whatever else hinders it from
// doing any of that.
Workspace open_workspace(const Options& options);

// What stands in the files of all repositories. One of several that cannot be read joins the
// failures.
std::vector<registry_docs::FileReport> report(Workspace& workspace,
                                              registry_docs::Detail detail);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_WORKSPACE_H
