#include "registry_docs/blocks/scan.h"

#include <gtest/gtest.h>

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
        "<!-- / registry:a -->", "<!--/registry:a -->", "<!-- /registry:a-->",
        "<!-- /registry:a --->"}) {
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

}  // namespace
}  // namespace registry_docs::blocks
