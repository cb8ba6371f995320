#include "registry_docs/repository/open_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "registry_docs/errors.h"

namespace registry_docs::repository {
namespace {

using port::last_error;

constexpr const char* regular_file = "a regular file";

const char* kind_name(mode_t mode) {
  if (S_ISDIR(mode)) return "a directory";
  if (S_ISFIFO(mode)) return "a pipe";
  if (S_ISSOCK(mode)) return "a socket";
  return "a device";
}

}  // namespace

OpenFile open_file(const std::filesystem::path& path, int flags) {
  int number = -1;
  do {
    number = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY);
  } while (number < 0 && errno == EINTR);
  if (number >= 0) return {path, port::Descriptor(number)};
  const std::error_code failure = last_error();
  struct stat status {};
  // The system says no more of a socket than that there is no such device.
  if (failure.value() == ENXIO && ::stat(path.c_str(), &status) == 0) {
    refuse_kind(path, status.st_mode, regular_file);
  }
  throw FileError(path, failure);
}

struct stat status_of(const OpenFile& file) {
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) throw FileError(file.path, last_error());
  return status;
}

struct stat regular_status_of(const OpenFile& file) {
  const struct stat status = status_of(file);
  if (!S_ISREG(status.st_mode)) refuse_kind(file.path, status.st_mode, regular_file);
  return status;
}

std::string rest_of(const OpenFile& file, const struct stat& status) {
  constexpr std::size_t least_room = 4096;
  const bool is_regular = S_ISREG(status.st_mode);
  std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
  for (std::size_t size = 0;;) {
    const std::size_t room = bytes.size() - size;
    const ssize_t count = ::read(file.number(), bytes.data() + size, room);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw FileError(file.path, last_error());
    size += static_cast<std::size_t>(count);
    // Of a regular file, the system returns less than it was asked for only at the end.
    if (count == 0 || (is_regular && static_cast<std::size_t>(count) < room)) {
      bytes.resize(size);
      return bytes;
    }
    if (bytes.size() == size) bytes.resize(size * 2 + least_room);
  }
}

void refuse_kind(const std::filesystem::path& path, mode_t mode, const std::string& expected) {
  const auto code = S_ISDIR(mode) ? std::errc::is_a_directory : std::errc::invalid_argument;
  throw FileError(path, std::make_error_code(code),
                  "expected " + expected + ", found " + kind_name(mode));
}

}  // namespace registry_docs::repository
