#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

#include "registry_docs/registry_docs.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "tesmo_sorvet/host.h"

namespace registry_docs {
namespace {

const support::fs::path tests = TESTS_DIRECTORY;

// Compares every block of a host with the file of its name. With UPDATE_GOLDEN=1 in the
// environment the files are written instead, and must then be read before they are kept.
void expect_golden(const Host& host, const support::fs::path& directory) {
  const char* const update = std::getenv("UPDATE_GOLDEN");
  for (const GeneratedFile& file : generated_files(host)) {
    for (const auto& [name, renderer] : file.blocks) {
      SCOPED_TRACE(name);
      std::string file_name = name + ".md";
      if (name.starts_with("params:")) file_name[6] = '-';
      const support::fs::path golden = tests / directory / file_name;
      if (update != nullptr && std::string_view(update) == "1") {
        support::write_file(golden, renderer());
      }
      EXPECT_EQ(renderer(), support::read_file(golden));
    }
  }
}

TEST(Golden, BlocksOfAnAwkwardHost) {
  expect_golden(support::awkward_host(), "renderers/golden/awkward");
}

TEST(Golden, BlocksOfAHostWithoutTools) {
  expect_golden(support::empty_host(), "renderers/golden/empty");
}

TEST(Golden, BlocksOfARegistryOfEveryForm) {
  const support::fs::path root = tests / "tesmo_sorvet/accepted";
  expect_golden(tesmo_sorvet::bind_host(root, root / "tool_registry.json"),
                "tesmo_sorvet/golden");
}

}  // namespace
}  // namespace registry_docs
