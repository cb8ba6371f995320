#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>

#include "registry_docs/registry_docs.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "support/text.h"
#include "tesmo_sorvet/host.h"

namespace registry_docs {
namespace {

using support::fs::path;
using support::message_of;
using support::read_file;
using support::replaced;
using support::write_file;
using Lines = std::vector<std::string>;

// What a write may change of a file, and what it may not.
struct FileState {
  std::string bytes;
  ino_t inode;
  mode_t mode;
  std::pair<time_t, long> modified;

  bool operator==(const FileState&) const = default;
};

class CheckAndWrite : public ::testing::Test {
 protected:
  // The example's files, which are current.
  CheckAndWrite() {
    support::fs::copy(EXAMPLE_DIRECTORY, root, support::fs::copy_options::recursive);
    for (const auto& [name, state] : states()) originals[name] = state.bytes;
  }

  // The generated files by path, made old first, so that a write shows in their times.
  std::map<std::string, FileState> states() {
    std::map<std::string, FileState> found;
    for (const GeneratedFile& file : generated_files(host)) {
      const timespec old[] = {{1, 2}, {3, 4}};
      ::utimensat(AT_FDCWD, (root / file.path).c_str(), old, 0);
      struct stat status {};
      ::stat((root / file.path).c_str(), &status);
      found[file.path] = state_now(file.path);
    }
    return found;
  }
