#include "port/directory.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <memory>
#include <string_view>

#include "port/system_call.h"

namespace port {
namespace {

struct Close {
  void operator()(DIR* directory) const { ::closedir(directory); }
};

EntryKind kind_of(unsigned char type) {
  if (type == DT_DIR) return EntryKind::directory;
  return type == DT_LNK ? EntryKind::link : EntryKind::other;
}

// For file systems that do not tell with the name. What is gone by now is of no kind.
EntryKind asked_kind(DIR* directory, const char* name) {
  struct stat status {};
  if (::fstatat(::dirfd(directory), name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
    return EntryKind::other;
  }
  return kind_of(IFTODT(status.st_mode));
}

}  // namespace

std::error_code list_directory(const std::string& path, std::vector<Entry>& entries) {
  const std::unique_ptr<DIR, Close> directory(::opendir(path.c_str()));
  if (!directory) return last_error();
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(directory.get());
    if (entry == nullptr) return errno == 0 ? std::error_code() : last_error();
    const char* const name = static_cast<const char*>(entry->d_name);
    if (name == std::string_view(".") || name == std::string_view("..")) continue;
    const bool is_told = entry->d_type != DT_UNKNOWN;
    entries.push_back(
        {name, is_told ? kind_of(entry->d_type) : asked_kind(directory.get(), name)});
  }
}

}  // namespace port
