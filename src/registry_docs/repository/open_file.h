// A file that is open, and what messages call it.
#ifndef REGISTRY_DOCS_REPOSITORY_OPEN_FILE_H
#define REGISTRY_DOCS_REPOSITORY_OPEN_FILE_H

#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "port/descriptor.h"

namespace registry_docs::repository {

struct OpenFile {
  const std::filesystem::path& path;
  port::Descriptor descriptor;

  [[nodiscard]] int number() const noexcept { return descriptor.number(); }
};

// All of these throw FileError.

// Opens with the flags of open(2), O_CLOEXEC and O_NOCTTY among them. Borrows the path.
OpenFile open_file(const std::filesystem::path& path, int flags);

struct stat status_of(const OpenFile& file);

// The status of a file that must be a regular one.
struct stat regular_status_of(const OpenFile& file);

// The bytes from where the file is read next up to its end.
std::string rest_of(const OpenFile& file, const struct stat& status);

// Refuses what stands at `path` for being of another kind than the `expected` one.
[[noreturn]] void refuse_kind(const std::filesystem::path& path, mode_t mode,
                              const std::string& expected);

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_OPEN_FILE_H
