#include "registry_docs/blocks/scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "registry_docs/registry_docs.h"
#include "support/text.h"

namespace registry_docs::blocks {
namespace {

using support::markers;

// "NAME(BODY)" for each block in the order of the text.
std::string scanned(std::string_view text) {
  std::string found;
  for (const Block& block : scan(text)) {
    EXPECT_EQ(block.open, markers("[" + std::string(block.name) + "]\n"));
    EXPECT_EQ(block.close, markers("[/" + std::string(block.name) + "]"));
    found += std::string(block.name) + "(" + std::string(block.body) + ")";
  }
  return found;
}

TEST(Scan, FindsTheBlocksOfATextFromLeftToRight) {
  for (const auto& [name, text, expected] : support::read_cases("blocks/scan_cases.txt")) {
    SCOPED_TRACE(name);
    EXPECT_EQ(scanned(markers(text)), markers(expected));
  }
  EXPECT_EQ(scanned(markers("[a]\r\nx\r\n[/a]\r\n")), "");
  EXPECT_EQ(scanned(markers("[a]\nx\r\n[/a]\r\n")), "a(x\r\n)");
  EXPECT_EQ(scanned(markers("[\xFF]\n[/\xFF][\xC3]\n[/\xC3][a]\n\x80[/a]")), "a(\x80)");
}

TEST(Scan, TakesNoOtherSpellingForAMarker) {
  for (const std::string near :
       {"!-- registry:a -->", "<!--registry:a -->", "<!--  registry:a -->",
        "<!-- Registry:a -->", "<!-- registry :a -->", "<!-- registry: a -->",
        "<!-- registry:a  -->", "<!-- registry:a-->", "<!-- registry:a --\n>",
        "<!-- / registry:a -->", "<!--/registry:a -->", "<!-- /registry:a-->"}) {
    EXPECT_EQ(scanned(near + markers("\n1[/a]")), "");
    EXPECT_EQ(scanned(markers("[a]\n") + near + markers("[/a]")), "a(" + near + ")");
  }
}

TEST(Scan, TakesLettersAndNumbersOfAnyScriptForNames) {
  for (const std::string name : {"params:a_b-1", "0", "-", ":", "_", "größe", "日本語", "٣",
                                 "Ⅷ", "½", "²", "ʰ", "ǅ", "𝒜", "한", "a\u0915b"}) {
    EXPECT_EQ(scanned(markers("[" + name + "]\n[/" + name + "]")), name + "()");
  }
  for (const std::string name :
       {"", "a.b", "a b", "a/b", "'a'", "a+", "/a", "a\n", "e\u0301", "\u0915\u093F", "\u203F",
        "€", "😀", "a\u200D", "a\u00A0", "—", "\uE000", "\uFEFFa", "\uFFFD"}) {
    EXPECT_EQ(scanned(markers("[" + name + "]\n[/" + name + "]")), "") << name;
  }
}

TEST(Blocks, HoldsARepeatedNameOnceWithItsLastBody) {
  const std::string text = markers("[b]\n1[/b][a]\n2[/a][b]\n3[/b][c]\n4[/c][b]\n5[/b]");
  EXPECT_EQ(block_names(text), (std::vector<std::string_view>{"b", "a", "b", "c", "b"}));
  const std::vector<std::pair<std::string_view, std::string_view>> bodies = {
      {"b", "5"}, {"a", "2"}, {"c", "4"}};
  EXPECT_EQ(blocks(text), bodies);
}

std::string searched(const std::string& text) {
  std::string found;
  for (std::size_t at = 0; (at = text.find("<!-- registry:", at)) != std::string::npos; ++at) {
    const std::size_t name_end = std::min(text.find(" -->\n", at), text.size());
    const std::string name = text.substr(at + 14, name_end - at - 14);
    const std::size_t body = name_end + 5;
    const std::string closing = "<!-- /registry:" + name + " -->";
    const bool is_name = !name.empty() && name.find_first_not_of("abé-") == std::string::npos;
    const std::size_t close = is_name ? text.find(closing, body) : std::string::npos;
    if (close == std::string::npos) continue;
    found += name + "(" + text.substr(body, close - body) + ")";
    at = close + closing.size() - 1;
  }
  return found;
}

TEST(Scan, AgreesWithASearchPerOpeningMarker) {
  const std::vector<std::string> pieces = {
      "[a]\n", "[b]\n", "[é]\n", "[a]",   "[/a]", "[/b]", "[/é]", "[a-]\n",
      "[/a-]", "[.]\n", "\n",    "<!-- ", "[",    "[/",   "]\n",  "]",
      "a",     "é",     "-",     "!",     "<",    " "};
  std::mt19937 random(20240229);
  for (int round = 0; round < 5000; ++round) {
    std::string soup;
    for (auto left = random() % 60; left > 0; --left) soup += pieces[random() % pieces.size()];
    const std::string text = markers(soup);
    ASSERT_EQ(scanned(text), searched(text)) << text;
  }
}

}  // namespace
}  // namespace registry_docs::blocks
