#include "json/document.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "json/node.h"
#include "registry_docs/errors.h"

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

std::string nested(std::size_t levels) {
  return R"({"a":)" + std::string(levels - 1, '[') + std::string(levels - 1, ']') + "}";
}

TEST(Message, KeepsItsMembersAsTheyAreSpelled) {
  const Document message("m",
                         R"( {"\u0061" : {"b":1,"b":"\n"} ,"c":[ ],"d":"\u00e9\"","":"x",)"
                         R"("e":-0.1E+9999,"f":99999999999999999999,"g":null,"c":false})",
                         Rules::message);
  std::string found;
  Node(message).for_each_member([&](std::string_view name, const Node& value) {
    found += std::string(name) + ": " + std::string(value.spelling()) + "\n";
  });
  EXPECT_EQ(found,
            "a: {\"b\":1,\"b\":\"\\n\"}\nc: [ ]\nd: \"\\u00e9\\\"\"\n: \"x\"\n"
            "e: -0.1E+9999\nf: 99999999999999999999\ng: null\nc: false\n");
  const Node a = Node(message).at("a");
  EXPECT_EQ(a.kind(), Kind::object);
  EXPECT_THROW(static_cast<void>(a.find("b")), std::logic_error);
  EXPECT_EQ(Node(message).at("d").string(), "\u00e9\"");
  EXPECT_FALSE(Node(message).at("c").boolean());  // the last one counts
}

TEST(Message, TakesNoMemoryForWhatStandsInItsMembers) {
  std::string elements = "[0";
  for (int i = 0; i < 100'000; ++i) elements += R"(,{"a":["\n"]})";
  Document message("m", R"({"a":0,"b":)" + elements + "]}", Rules::message);
  EXPECT_EQ(message.root().span(), 5U);
  const std::string_view bytes = Node(message).at("b").spelling();
  EXPECT_EQ(std::move(message).take(bytes), elements + "]");
}

TEST(Message, RefusesWhatIsNoObjectAndWhatIsOutOfOrderAnywhereInIt) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "1:1: expected a JSON object, found the end of the document"},
      {"\n[]", "2:1: expected a JSON object, found '['"},
      {"{} {}", "1:4: expected nothing after the document, found '{'"},
      {R"({"a":[{"b":01}]})", "1:13: expected a comma or a closing brace, found '1'"},
      {R"({"a":["\udc00"]})", "1:8: expected a pair of surrogates, found one alone"},
      {nested(1001), "1:1005: expected at most 1000 levels of nesting, found more"}};
  for (const auto& [json, message] : cases) {
    const auto read = [&text = json] { Document("m", text, Rules::message); };
    EXPECT_EQ(message_of<registry_docs::InputError>(read), "m:" + message);
  }
  EXPECT_EQ(Document("m", nested(1000), Rules::message).root().span(), 3U);
  EXPECT_EQ(message_of<registry_docs::DecodeError>(
                [] { Document("m", "{\"a\":[\"\xFF\"]}", Rules::message); }),
            "m: expected UTF-8, found an ill-formed sequence at byte 7");
}

}  // namespace
}  // namespace json
