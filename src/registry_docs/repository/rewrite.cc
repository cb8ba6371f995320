#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "registry_docs/repository/descriptor.h"
#include "registry_docs/repository/file.h"

namespace registry_docs::repository {
namespace {

// Keeps an interrupt waiting in this thread until the file in hand is whole.
class InterruptsHeld {
 public:
  InterruptsHeld() {
    sigset_t interrupts;
    sigemptyset(&interrupts);
    for (const int interrupt : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&interrupts, interrupt);
    ::pthread_sigmask(SIG_BLOCK, &interrupts, &before_);
  }
  ~InterruptsHeld() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  InterruptsHeld(const InterruptsHeld&) = delete;
  InterruptsHeld& operator=(const InterruptsHeld&) = delete;

 private:
  sigset_t before_{};
};

// Has the system set room aside for a longer text while the old one still stands. Where
// the file system cannot say, a full disk shows when the text is written.
std::error_code claim_room(const Descriptor& file, std::size_t old_size, std::size_t size) {
  if (size <= old_size) return {};
  while (::fallocate(file.number(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) != 0) {
    if (errno == EOPNOTSUPP || errno == ENOSYS) return {};
    if (errno != EINTR) return last_error();
  }
  return {};
}

// Writes the bytes over the beginning of the file. `done` counts those that were written,
// also when it fails.
std::error_code write_all(const Descriptor& file, std::string_view bytes, std::size_t& done) {
  for (done = 0; done < bytes.size();) {
    const ssize_t count = ::pwrite(file.number(), bytes.data() + done, bytes.size() - done,
                                   static_cast<off_t>(done));
    if (count == 0) return std::make_error_code(std::errc::io_error);
    if (count < 0 && errno != EINTR) return last_error();
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  return {};
}

std::error_code set_length(const Descriptor& file, std::size_t size) {
  while (::ftruncate(file.number(), static_cast<off_t>(size)) != 0) {
    if (errno != EINTR) return last_error();
  }
  return {};
}

// Writes first and sets the length last: the file is never shorter than both texts.
std::error_code put(const Descriptor& file, std::string_view bytes, std::size_t size,
                    std::size_t& done) {
  if (const std::error_code failure = write_all(file, bytes, done)) return failure;
  return set_length(file, size);
}

}  // namespace

void rewrite(const std::filesystem::path& path, std::string_view old_bytes,
             std::string_view text) {
  const InterruptsHeld held;
  Descriptor file(path, O_WRONLY);
  std::error_code failure = claim_room(file, old_bytes.size(), text.size());
  if (failure) {
    set_length(file, old_bytes.size());  // gives back what was claimed beyond the end
    throw FileError(path, failure);
  }
  std::size_t done = 0;
  failure = put(file, text, text.size(), done);
  if (!failure) failure = file.close();
  if (!failure) return;
  // What was not written over still stands, and a limit may forbid to write it again.
  const std::error_code lost =
      put(Descriptor(path, O_WRONLY), old_bytes.substr(0, done), old_bytes.size(), done);
  if (!lost) throw FileError(path, failure);
  throw FileError(
      path, failure,
      failure.message() + "; putting the old text back failed too: " + lost.message());
}

}  // namespace registry_docs::repository
