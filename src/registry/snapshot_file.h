// The file that keeps what a server answered, as one that is generated.
#ifndef REGISTRY_SNAPSHOT_FILE_H
#define REGISTRY_SNAPSHOT_FILE_H

#include <filesystem>
#include <string>
#include <vector>

#include "registry_docs/changes/change.h"
#include "registry_docs/registry_docs.h"

namespace registry {

struct SnapshotFile {
  registry_docs::GeneratedFile file;
  std::vector<registry_docs::changes::Change> changes = {};  // since it was written
};

// The snapshot at the path within the repository, which is to become `text`. A file that is
// there must be a snapshot: nothing else is ever replaced. Throws InputError, FileError or
// DecodeError.
SnapshotFile snapshot_file(const std::filesystem::path& root, const std::string& path,
                           std::string text);

}  // namespace registry

#endif  // REGISTRY_SNAPSHOT_FILE_H
