#include <gtest/gtest.h>

#include "registry/host.h"
#include "registry_docs/errors.h"
#include "support/temporary_directory.h"
#include "support/text.h"
#include "tesmo_sorvet/setup/config.h"

namespace tesmo_sorvet {
namespace {

namespace support = registry_docs::support;
using support::message_of;
using support::read_cases;

class Registry : public ::testing::Test {
 protected:
  std::string message_for(const std::string& registry) {
    support::write_file(file, registry);
    return message_of<registry_docs::InputError>(
        [this] { registry::bind_host(TESTS_DIRECTORY "/tesmo_sorvet/accepted", file); });
  }

  support::TemporaryDirectory directory;
  const std::string file = directory.path() / "registry.json";
};

TEST_F(Registry, IsRefusedWithThePlaceAndWhatIsWrongThere) {
  for (const auto& [name, text, message] : read_cases("tesmo_sorvet/refused_registries.txt")) {
    SCOPED_TRACE(name);
    EXPECT_EQ(message_for(text), file + message);
  }
}

TEST_F(Registry, IsRefusedForWhatNoTableShows) {
  using namespace std::string_literals;
  EXPECT_EQ(message_for("{\"tools\": []}\n\0"s),
            file + ":2:1: expected nothing after the document, found a control character");
  EXPECT_EQ(message_for("{\"tools\": \0[]}"s),
            file + ":1:11: expected a JSON value, found a control character");
  EXPECT_EQ(
      message_for("{\"to\0ls\": []}"s),
      file +
          ":1:5: expected a double quote at the end of the string, found a control character");
  const auto nested = [](std::size_t levels) {
    return "{\"tools\": [], \"x\":\n" + std::string(levels - 1, '[') +
           std::string(levels - 1, ']') + "}";
  };
  EXPECT_EQ(message_for(nested(256)), "(nothing was thrown)");
  EXPECT_EQ(message_for(nested(257)),
            file + ":2:256: expected at most 256 levels of nesting, found more");
}

TEST(RulesText, IsRefusedWithTheLineAndWhatIsWrongThere) {
  for (const auto& [name, text, message] :
       read_cases("tesmo_sorvet/refused_rules_texts.txt")) {
    SCOPED_TRACE(name);
    EXPECT_EQ(message_of<registry_docs::InputError>(
                  [&text = text] { instruction_content("config.py", text); }),
              "config.py" + message);
  }
}

TEST(WithoutMarkers, TakesOutEveryMarkerWithTheLineFeedBehindIt) {
  for (const auto& [name, text, left] : read_cases("tesmo_sorvet/without_markers_cases.txt")) {
    SCOPED_TRACE(name);
    EXPECT_EQ(without_markers(support::markers(text)), support::markers(left));
  }
}

}  // namespace
}  // namespace tesmo_sorvet
