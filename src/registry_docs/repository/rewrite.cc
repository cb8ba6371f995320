#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <system_error>

#include "port/disk.h"
#include "registry_docs/errors.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/repository/open_file.h"

namespace registry_docs::repository {
namespace {

using port::last_error;

// Keeps every signal that can wait from this thread until the file in hand is whole.
class SignalsHeld {
 public:
  SignalsHeld() {
    sigset_t all;
    sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &before_);
  }
  ~SignalsHeld() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsHeld(const SignalsHeld&) = delete;
  SignalsHeld& operator=(const SignalsHeld&) = delete;

 private:
  sigset_t before_{};
};

// `end` is the offset up to which the bytes were written, also when it fails.
std::error_code write_at(const OpenFile& file, std::string_view bytes, std::size_t offset,
                         std::size_t& end) {
  for (end = offset; !bytes.empty();) {
    const ssize_t count =
        ::pwrite(file.number(), bytes.data(), bytes.size(), static_cast<off_t>(end));
    if (count == 0) return std::make_error_code(std::errc::io_error);
    if (count < 0 && errno != EINTR) return last_error();
    if (count < 0) continue;
    bytes.remove_prefix(static_cast<std::size_t>(count));
    end += static_cast<std::size_t>(count);
  }
  return {};
}

std::error_code set_length(const OpenFile& file, std::size_t size) {
  return port::finish([&] { return ::ftruncate(file.number(), static_cast<off_t>(size)); });
}

// The old bytes that were lost to new ones, as offsets.
struct Range {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Makes `text` the contents of a file that holds `old_bytes`. What they have in common at
// the beginning stays untouched, and what goes beyond their end is written first: where no
// room could be claimed, a full disk shows while they still stand.
std::error_code replace(const OpenFile& file, std::string_view old_bytes,
                        std::string_view text, Range& lost) {
  const std::size_t shared = std::min(old_bytes.size(), text.size());
  const auto difference = std::ranges::mismatch(old_bytes, text).in1 - old_bytes.begin();
  lost.begin = lost.end = static_cast<std::size_t>(difference);
  std::size_t end = 0;
  if (const auto failure = write_at(file, text.substr(shared), shared, end)) return failure;
  const std::string_view changed = text.substr(lost.begin, shared - lost.begin);
  if (const auto failure = write_at(file, changed, lost.begin, lost.end)) return failure;
  if (text.size() < old_bytes.size()) {
    if (const auto failure = set_length(file, text.size())) return failure;
    lost.end = old_bytes.size();
  }
  return port::store(file.descriptor);
}

// Writes no more than was lost: a limit may forbid even that the same bytes are written.
std::error_code put_back(const OpenFile& file, std::string_view old_bytes, Range lost) {
  const std::string_view bytes = old_bytes.substr(lost.begin, lost.end - lost.begin);
  if (const auto failure = write_at(file, bytes, lost.begin, lost.end)) return failure;
  if (const auto failure = set_length(file, old_bytes.size())) return failure;
  return port::store(file.descriptor);
}

[[noreturn]] void give_up(const OpenFile& file, std::error_code failure,
                          std::error_code second) {
  if (!second) throw FileError(file.path, failure);
  throw FileError(
      file.path, failure,
      failure.message() + "; putting the old text back failed too: " + second.message());
}

// Refuses a file at whose place or in whose bytes somebody else was at work.
void require_alone(const OpenFile& file, const struct stat& status, std::string_view bytes,
                   const std::string& expected) {
  struct stat now {};
  if (::stat(file.path.c_str(), &now) != 0 || ::lseek(file.number(), 0, SEEK_SET) != 0) {
    throw FileError(file.path, last_error());
  }
  const bool is_same = now.st_ino == status.st_ino && now.st_dev == status.st_dev;
  if (is_same && rest_of(file, now) == bytes) return;
  throw FileError(
      file.path, std::make_error_code(std::errc::device_or_resource_busy),
      "expected " + expected + ", found another: some other program writes it too");
}

std::error_code write_whole(OpenFile& file, std::string_view text) {
  std::size_t end = 0;
  if (const auto failure = write_at(file, text, 0, end)) return failure;
  if (const auto failure = port::store(file.descriptor)) return failure;
  return file.descriptor.close();
}

}  // namespace

void make(const std::filesystem::path& path, std::string_view text) {
  constexpr mode_t mode = 0666;
  const SignalsHeld held;
  OpenFile file{path, port::Descriptor(::open(path.c_str(),
                                              O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode))};
  if (!file.descriptor.is_open()) throw FileError(path, last_error());
  const std::error_code failure = write_whole(file, text);
  if (!failure) return;
  ::unlink(path.c_str());
  throw FileError(path, failure);
}

void rewrite(const std::filesystem::path& path, std::string_view old_bytes,
             std::string_view text) {
  const SignalsHeld held;
  OpenFile file = open_file(path, O_RDWR | O_NONBLOCK);
  const struct stat status = regular_status_of(file);
  require_alone(file, status, old_bytes, "the text that was read before");
  Range lost;
  std::error_code failure;
  // While the old text still stands.
  if (text.size() > old_bytes.size()) failure = port::claim_room(file.descriptor, text.size());
  if (!failure) failure = replace(file, old_bytes, text, lost);
  if (failure) give_up(file, failure, put_back(file, old_bytes, lost));
  require_alone(file, status, text, "the text that was written");
  if ((failure = file.descriptor.close())) throw FileError(path, failure);
}

}  // namespace registry_docs::repository
