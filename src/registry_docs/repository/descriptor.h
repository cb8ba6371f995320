// An open file, closed when it goes out of scope.
#ifndef REGISTRY_DOCS_REPOSITORY_DESCRIPTOR_H
#define REGISTRY_DOCS_REPOSITORY_DESCRIPTOR_H

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
  // Opens with the flags of open(2), O_CLOEXEC among them. Throws FileError.
  Descriptor(const std::filesystem::path& path, int flags);
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  [[nodiscard]] int number() const noexcept { return number_; }

  // Some file systems report a failed write only here.
  std::error_code close() noexcept;

 private:
  int number_;
};

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_DESCRIPTOR_H
