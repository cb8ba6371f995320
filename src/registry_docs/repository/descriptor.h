// An open file, closed when it goes out of scope.
#ifndef REGISTRY_DOCS_REPOSITORY_DESCRIPTOR_H
#define REGISTRY_DOCS_REPOSITORY_DESCRIPTOR_H

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <system_error>

#include "registry_docs/errors.h"

namespace registry_docs::repository {

// The failure that errno holds.
inline std::error_code last_error() { return {errno, std::generic_category()}; }

class Descriptor {
 public:
  // Opens with the flags of open(2), O_CLOEXEC and O_NOCTTY among them. Throws FileError.
  // Borrows the path.
  Descriptor(const std::filesystem::path& path, int flags);
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] int number() const noexcept { return number_; }
  [[nodiscard]] const std::filesystem::path& path() const noexcept { return *path_; }

  // Some file systems report a failed write only here.
  std::error_code close() noexcept;

 private:
  const std::filesystem::path* path_;
  int number_;
};

// All of these throw FileError.

struct stat status_of(const Descriptor& file);

// The status of a file that must be a regular one.
struct stat regular_status_of(const Descriptor& file);

// The bytes from where the file is read next up to its end.
std::string rest_of(const Descriptor& file, const struct stat& status);

// Refuses what stands at `path` for being of another kind than the `expected` one.
[[noreturn]] void refuse_kind(const std::filesystem::path& path, mode_t mode,
                              const std::string& expected);

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_DESCRIPTOR_H
