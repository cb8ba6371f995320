#include <fcntl.h>
#include <sys/stat.h>

#include "registry_docs/repository/descriptor.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/text.h"
#include "registry_docs/text/line_endings.h"

namespace registry_docs {
namespace repository {
namespace {

struct stat status_of(const Descriptor& file, const std::filesystem::path& path) {
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) throw FileError(path, last_error());
  return status;
}

// Reads to the end of the file.
std::string read_to_end(const Descriptor& file, const struct stat& status,
                        const std::filesystem::path& path) {
  constexpr std::size_t least_room = 4096;
  const bool is_regular = S_ISREG(status.st_mode);
  std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
  for (std::size_t size = 0;;) {
    const std::size_t room = bytes.size() - size;
    const ssize_t count = ::read(file.number(), bytes.data() + size, room);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw FileError(path, last_error());
    size += static_cast<std::size_t>(count);
    // Of a regular file, the system returns less than it was asked for only at the end.
    if (count == 0 || (is_regular && static_cast<std::size_t>(count) < room)) {
      bytes.resize(size);
      return bytes;
    }
    if (bytes.size() == size) bytes.resize(size * 2 + least_room);
  }
}

void require_regular(const struct stat& status, const std::filesystem::path& path) {
  if (S_ISREG(status.st_mode)) return;
  if (S_ISDIR(status.st_mode)) {
    throw FileError(path, std::make_error_code(std::errc::is_a_directory));
  }
  throw FileError(path, std::make_error_code(std::errc::invalid_argument),
                  "expected a regular file");
}

}  // namespace

std::string read_regular_file(const std::filesystem::path& path) {
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);  // a pipe must not be waited on
  const struct stat status = status_of(file, path);
  require_regular(status, path);
  return read_to_end(file, status, path);
}

std::string decoded(const std::filesystem::path& path, std::string bytes) {
  if (const auto offset = find_ill_formed(bytes)) throw DecodeError(path, *offset);
  return text::with_line_feeds(std::move(bytes));
}

}  // namespace repository

std::string read_bytes(const std::filesystem::path& path) {
  const repository::Descriptor file(path, O_RDONLY);
  const struct stat status = repository::status_of(file, path);
  return repository::read_to_end(file, status, path);
}

std::string read_text(const std::filesystem::path& path) {
  return repository::decoded(path, repository::read_regular_file(path));
}

}  // namespace registry_docs
