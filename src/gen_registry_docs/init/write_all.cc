#include "gen_registry_docs/init/write_all.h"

#include <cstddef>

#include "registry_docs/errors.h"
#include "registry_docs/repository/file.h"

namespace gen_registry_docs::init {
namespace {

namespace fs = std::filesystem;
using registry_docs::FileError;
using registry_docs::FileReport;

void put_back(const FileReport& file, const fs::path& root) {
  if (file.is_new) {
    fs::remove(root / file.path);
  } else {
    registry_docs::repository::rewrite(root / file.path, registry_docs::new_bytes(file),
                                       file.bytes);
  }
}

void put_all_back(std::span<const FileReport> files, const fs::path& root,
                  const FileError& reason) {
  for (const FileReport& file : files) {
    try {
      put_back(file, root);
    } catch (const std::exception& second) {
      throw FileError(reason.path(), reason.code(),
                      reason.code().message() + "; putting the old text of " + file.path +
                          " back failed too: " + second.what());
    }
  }
}

}  // namespace

void write_all(std::span<const FileReport> files, const fs::path& root) {
  for (std::size_t done = 0; done < files.size(); ++done) {
    try {
      registry_docs::write_files(files.subspan(done, 1), root);
    } catch (const FileError& error) {
      put_all_back(files.first(done), root, error);
      throw;
    }
  }
}

}  // namespace gen_registry_docs::init
