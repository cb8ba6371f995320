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

namespace registry_docs::support {

// Made empty, and removed with all that it holds by then.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error(path_ + ": not made");
  }
  ~TemporaryDirectory() { std::filesystem::remove_all(path_); }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  [[nodiscard]] std::filesystem::path path() const { return path_; }

 private:
  std::string path_ = std::filesystem::temp_directory_path() / "registry_docs.XXXXXX";
};

inline std::string read_file(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + ": cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

// Makes the directories that the path needs.
inline void write_file(const std::filesystem::path& path, std::string_view bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  if (!(file << bytes).flush())
    throw std::runtime_error(path.string() + ": cannot be written");
}

}  // namespace registry_docs::support

#endif  // SUPPORT_TEMPORARY_DIRECTORY_H
