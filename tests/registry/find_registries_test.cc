#include "registry/find_registries.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/errors.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
namespace support = registry_docs::support;

struct Tree {
  std::string_view name;
  std::vector<std::string> files;  // "PATH", or "PATH: TEXT"
  std::vector<std::string> found;  // relative to `start`
  std::string start = {};          // relative to the tree
};

void make(const fs::path& root, const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    const std::size_t colon = file.find(": ");
    const bool has_text = colon != std::string::npos;
    support::write_file(root / file.substr(0, colon), has_text ? file.substr(colon + 2) : "");
  }
}

std::vector<std::string> found_in(const fs::path& start) {
  std::vector<std::string> found;
  for (const fs::path& path : find_registries(start)) {
    found.push_back(path == start ? "." : path.lexically_relative(start).string());
  }
  return found;
}

const std::vector<Tree> trees = {
    {.name = "none", .files = {"a/b"}, .found = {}},
    {.name = "each of its places",
     .files = {"registry-docs.json", "a/src/tesmo_sorvet/tool_registry.json"},
     .found = {".", "a"}},
    {.name = "both places of one",
     .files = {"registry-docs.json", "src/tesmo_sorvet/tool_registry.json"},
     .found = {"."}},
    {.name = "no places",
     .files = {"my-registry-docs.json", "registry-docs.json.in", "a/tool_registry.json",
               "my-src/tesmo_sorvet/tool_registry.json", "src/tesmo_sorvet/x/docs.json"},
     .found = {}},
    {.name = "in order, a slash first",
     .files = {"a-b/registry-docs.json", "a/registry-docs.json", "a/b/registry-docs.json",
               "a b/registry-docs.json", "B/registry-docs.json", "é/registry-docs.json"},
     .found = {"B", "a", "a/b", "a b", "a-b", "é"}},
    {.name = "not what is never looked into",
     .files = {".git/registry-docs.json", "node_modules/a/registry-docs.json",
               "a/node_modules/registry-docs.json", ".hidden/registry-docs.json"},
     .found = {".hidden"}},
    {.name = "not what is ignored, in no work tree either",
     .files = {".gitignore: build/\n*_old", "build/registry-docs.json",
               "build_old/registry-docs.json", "a/.gitignore: !build_old",
               "a/build_old/registry-docs.json"},
     .found = {"a/build_old"}},
    {.name = "no document that is ignored",
     .files = {".gitignore: *.json\n!/c/*.json\n", "a/registry-docs.json",
               "c/registry-docs.json", "b/src/tesmo_sorvet/tool_registry.json"},
     .found = {"c"}},
    {.name = "no document that is ignored on the way",
     .files = {"a/.gitignore: /src", "a/src/tesmo_sorvet/tool_registry.json",
               "b/src/.gitignore: tesmo*", "b/src/tesmo_sorvet/tool_registry.json"},
     .found = {}},
    {.name = "by the rules above, up to the top of the work tree",
     .files = {".gitignore: a", "top/.git/info/exclude: b", "top/.gitignore: /in/c",
               "top/in/.gitignore: d", "top/in/a/registry-docs.json",
               "top/in/b/registry-docs.json", "top/in/c/registry-docs.json",
               "top/in/d/registry-docs.json"},
     .found = {"a"},
     .start = "top/in"},
    {.name = "the first directory, ignored or not",
     .files = {".git/HEAD", ".gitignore: node_modules/\n*.x",
               "node_modules/a/registry-docs.json", "node_modules/a.x/registry-docs.json"},
     .found = {"a"},
     .start = "node_modules"},
    {.name = "not what is above the first directory",
     .files = {"src/tesmo_sorvet/tool_registry.json"},
     .found = {},
     .start = "src"},
    {.name = "a repository within has its own rules",
     .files = {".git/HEAD", ".gitignore: a\n/gone", "in/.git/HEAD", "in/.git/info/exclude: b",
               "in/a/registry-docs.json", "in/b/registry-docs.json",
               "linked/.git: gitdir: ../.git/worktrees/linked", "linked/a/registry-docs.json",
               "gone/.git/HEAD", "gone/registry-docs.json", "in/src/.git/HEAD",
               "in/src/tesmo_sorvet/tool_registry.json"},
     .found = {"in", "in/a", "linked/a"}},
};

TEST(FindRegistries, FindsWhatGitDoesNotIgnore) {
  for (const auto& [name, files, found, start] : trees) {
    SCOPED_TRACE(name);
    const support::TemporaryDirectory root;
    make(root.path(), files);
    EXPECT_EQ(found_in(start.empty() ? root.path() : root.path() / start), found);
  }
}

TEST(FindRegistries, FollowsLinksToDocumentsAlone) {
  const support::TemporaryDirectory root;
  make(root.path(), {"a/registry-docs.json", "a/b/x"});
  fs::create_directory(root.path() / "linked");
  fs::create_symlink("../a/registry-docs.json", root.path() / "linked/registry-docs.json");
  fs::create_symlink("nowhere", root.path() / "a/b/registry-docs.json");
  fs::create_directory_symlink("..", root.path() / "a/cycle");
  fs::create_directory_symlink("a", root.path() / "to_a");
  EXPECT_EQ(found_in(root.path()), (std::vector<std::string>{"a", "linked"}));
  EXPECT_EQ(found_in(root.path() / "to_a"), std::vector<std::string>{"."});
}

TEST(FindRegistries, BeginsEachPathAsItIsGiven) {
  const support::TemporaryDirectory root;
  make(root.path(), {"registry-docs.json", "a/registry-docs.json"});
  const fs::path before = fs::current_path();
  fs::current_path(root.path());
  EXPECT_EQ(find_registries("."), (std::vector<fs::path>{".", "./a"}));
  EXPECT_EQ(find_registries("a"), (std::vector<fs::path>{"a"}));
  fs::current_path(before);
}

// Root could read everything.
class OrdinaryUser {
 public:
  OrdinaryUser() { EXPECT_EQ(is_root_ ? ::seteuid(65534) : 0, 0); }
  ~OrdinaryUser() { EXPECT_EQ(is_root_ ? ::seteuid(0) : 0, 0); }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  bool is_root_ = ::geteuid() == 0;
};

TEST(FindRegistries, NamesWhatCannotBeRead) {
  struct Row {
    std::string_view name, start, closed, message;
  };
  static constexpr std::string_view nothing = "(nothing was thrown)";
  const support::TemporaryDirectory root;
  fs::permissions(root.path(), fs::perms(0755));
  make(root.path(), {".gitignore: ignored", "file", "a/b/c", "a/ignored/c", "a/.gitignore"});
  for (const auto& [name, start, closed, message] : std::initializer_list<Row>{
           {"no such directory", "none", "", "ROOT/none: No such file or directory"},
           {"a file", "file", "", "ROOT/file: Not a directory"},
           {"the first directory", "a", "a", "ROOT/a: Permission denied"},
           {"one below", "", "a/b", "ROOT/a/b: Permission denied"},
           {"one that is ignored", "", "a/ignored", nothing},
           {"rules", "", "a/.gitignore", "ROOT/a/.gitignore: Permission denied"}}) {
    SCOPED_TRACE(name);
    const fs::path path = start.empty() ? root.path() : root.path() / start;
    const fs::path kept = closed.empty() ? root.path() : root.path() / closed;
    const fs::perms before = fs::status(kept).permissions();
    if (!closed.empty()) fs::permissions(kept, fs::perms::none);
    const auto search = [&path] {
      const OrdinaryUser user;
      find_registries(path);
    };
    EXPECT_EQ(support::replaced(support::message_of<registry_docs::FileError>(search),
                                root.path().string(), "ROOT"),
              message);
    fs::permissions(kept, before);
  }
}

TEST(FindRegistries, WaitsOnNothingAndReadsRulesOfFilesAlone) {
  const support::TemporaryDirectory root;
  make(root.path(), {"pipe/registry-docs.json", "directory/.gitignore/x",
                     "directory/registry-docs.json", "link/registry-docs.json", "all: *"});
  ASSERT_EQ(::mkfifo((root.path() / "pipe/.gitignore").c_str(), 0600), 0);
  fs::create_symlink("../all", root.path() / "link/.gitignore");
  EXPECT_EQ(found_in(root.path()), (std::vector<std::string>{"directory", "link", "pipe"}));
}

}  // namespace
}  // namespace registry
