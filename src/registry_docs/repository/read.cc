#include <fcntl.h>

#include "registry_docs/errors.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/repository/open_file.h"
#include "registry_docs/text.h"
#include "text/line_endings.h"

namespace registry_docs {
namespace repository {

std::string read_regular_file(const std::filesystem::path& path) {
  const OpenFile file =
      open_file(path, O_RDONLY | O_NONBLOCK);  // a pipe must not be waited on
  return rest_of(file, regular_status_of(file));
}

std::string read_whole(const std::filesystem::path& path) {
  std::string bytes = read_regular_file(path);
  if (const auto offset = find_ill_formed(bytes)) throw DecodeError(path, *offset);
  return bytes;
}

std::string decoded(const std::filesystem::path& path, std::string bytes) {
  if (const auto offset = find_ill_formed(bytes)) throw DecodeError(path, *offset);
  return text::with_line_feeds(std::move(bytes));
}

}  // namespace repository

std::string read_bytes(const std::filesystem::path& path, FileKind kind) {
  if (kind == FileKind::regular) return repository::read_regular_file(path);
  const repository::OpenFile file = repository::open_file(path, O_RDONLY);
  const struct stat status = repository::status_of(file);
  if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode)) {
    repository::refuse_kind(path, status.st_mode, "a regular file or a pipe");
  }
  return repository::rest_of(file, status);
}

std::string read_text(const std::filesystem::path& path) {
  return repository::decoded(path, repository::read_regular_file(path));
}

}  // namespace registry_docs
