#include "registry_docs/repository/descriptor.h"

#include <fcntl.h>

#include <utility>

namespace registry_docs::repository {

Descriptor::Descriptor(const std::filesystem::path& path, int flags)
    : number_(::open(path.c_str(), flags | O_CLOEXEC)) {
  if (number_ < 0) throw FileError(path, last_error());
}

std::error_code Descriptor::close() noexcept {
  if (::close(std::exchange(number_, -1)) != 0) return last_error();
  return {};
}

}  // namespace registry_docs::repository
