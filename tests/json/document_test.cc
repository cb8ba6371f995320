#include "json/document.h"
#include "registry_docs/errors.h"

#include <gtest/gtest.h>

#include "support/text.h"

namespace json {
namespace {

using registry_docs::support::message_of;

// Bytes that differ by one, or in the highest bit alone, from those that end a run.
const std::string near_ends = "!#[]~\x7F\u00A2\u00DC\u071C\u0120\u041F";

TEST(Document, ReadsRunsOfEverySize) {
  for (std::size_t size = 0; size < 40; ++size) {
    const std::string text = std::string(size, '#') + near_ends;
    const std::string blanks = "\r\n" + std::string(size, ' ') + "\t\n ";
    std::string json = blanks;
    for (const std::string& part : {std::string("["), "\"" + text + "\"", std::string(","),
                                    "\"" + text + "\\n" + text + "\""}) {
      json += part + blanks;
    }
    const Document document("j", json + "]" + blanks);
    const Token* const tokens = &document.root();
    EXPECT_EQ(tokens[0].span(), 3U);
    EXPECT_EQ(tokens[1].text(), text);
    EXPECT_EQ(tokens[2].text(), text + "\n" + text);
  }
}

TEST(Document, ReadsEveryKindOfEscape) {
  const Document document(
      "j", R"("\"\\\/\b\f\n\r\t\u007f\u00E9\ud7Ff\ue000\ud800\udc00\uDBFF\uDFFF")");
  EXPECT_EQ(document.root().text(),
            "\"\\/\b\f\n\r\t\x7F\u00E9\uD7FF\uE000\U00010000\U0010FFFF");
}

TEST(Document, RefusesAControlCharacterWhereverItStands) {
  for (std::size_t size = 0; size < 40; ++size) {
    const std::string json =
        "\"" + std::string(size, ' ') + "\x1F" + std::string(40 - size, ' ') + "\"";
    EXPECT_EQ(message_of<registry_docs::InputError>([&] { Document("j", json); }),
              "j:1:" + std::to_string(size + 2) +
                  ": expected an escape that JSON has, and no bare control character, "
                  "found a control character");
  }
}

}  // namespace
}  // namespace json
