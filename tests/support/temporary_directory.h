// Files and directories of a test's own.
#ifndef SUPPORT_TEMPORARY_DIRECTORY_H
#define SUPPORT_TEMPORARY_DIRECTORY_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace support {

namespace fs = std::filesystem;

// Made empty, and removed with all that it holds by then.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string name = fs::temp_directory_path() / "registry_docs.XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error(name + ": not made");
    path_ = name;
  }
  ~TemporaryDirectory() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  [[nodiscard]] const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

inline std::string read_file(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + ": cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

// Makes the directories that the path needs.
inline void write_file(const fs::path& path, std::string_view bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  if (!(file << bytes).flush())
    throw std::runtime_error(path.string() + ": cannot be written");
}

}  // namespace support

#endif  // SUPPORT_TEMPORARY_DIRECTORY_H
