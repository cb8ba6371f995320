#include "registry_docs/blocks/scan.h"

#include <gtest/gtest.h>

#include "registry_docs/markers.h"
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

// The names of the blocks of a Markdown text.
std::string names_in(const std::string& text) {
  std::string names;
  const std::string marked = markers(text);
  for (const Block& block : scan(marked, {.is_markdown = true})) names += block.name;
  return names;
}

TEST(Scan, TakesMarkersInFencedCodeForExamples) {
  const struct {
    const char* name;
    const char* text;
    const char* names;
  } rows[] = {
      {"fence", "```\n[a]\n[/a]\n```\n[b]\n[/b]", "b"},
      {"tildes", "~~~ text `\n[a]\n[/a]\n~~~~\n[b]\n[/b]", "b"},
      {"longer fence", "````\n```\n[a]\n[/a]\n````\n[b]\n[/b]", "b"},
      {"never closed", "```\n[a]\n[/a]\n~~~\n", ""},
      {"span of code", "```x```\n[a]\n[/a]", "a"},
      {"indented code", "    ```\n[a]\n[/a]", "a"},
      {"closed too far in", "```\n    ```\n[a]\n[/a]", ""},
      {"in a list", "- x\n\n  ```\n  [a]\n  [/a]\n  ```\n[b]\n[/b]", "b"},
      {"far in a list", "1. - x\n\n     ```\n     [a]\n     [/a]\n     ```\n[b]\n[/b]", "b"},
      {"behind the mark of an item", "- ```\n  [a]\n  [/a]\n\n[b]\n[/b]", "b"},
      {"item that ends", "- ```\n[a]\n[/a]", "a"},
      {"in a quotation", "> ```\n> [a]\n> [/a]\n> ```\n> [b]\n> [/b]", "b"},
      {"quotation that ends", "> ```\n\n[a]\n[/a]", "a"},
      {"list in a quotation", "> - ```\n>   [a]\n>   [/a]\n>\n> [b]\n> [/b]", "b"},
      {"broken fence within a block", "[a]\n```\n[/a]\n[b]\n[/b]", "ab"},
      {"closing marker in a fence", "[a]\n```\n[/a]\n```\n[b]\n[/b]", "a"},
  };
  for (const auto& [name, text, names] : rows) EXPECT_EQ(names_in(text), names) << name;
  EXPECT_EQ(scan(markers("```\n[a]\n[/a]\n```")).size(), 1U);
}

TEST(Scan, FindsTheCommentsOfAnySyntax) {
  const struct {
    const char* name;
    Comment comment;
    std::string text;
    const char* found;
  } rows[] = {
      {"hash", {"#", ""}, "# registry:a\nx\n  # /registry:a\n", "a(x\n  )"},
      {"dashes, which names hold", {"--", ""}, "-- registry:a--\n-- /registry:a--", "a--()"},
      {"text before it", {"#", ""}, "x # registry:a\n# /registry:a", ""},
      {"twice a comment", {"#", ""}, "## registry:a\n## /registry:a", ""},
      {"text behind it", {"//", ""}, "// registry:a x\n// /registry:a", ""},
      {"slash and star", {"/*", "*/"}, "/* registry:a */\n1/* /registry:a */", "a(1)"},
      {"braces", {"{/*", "*/}"}, "{/* registry:a */}\n{/* /registry:a */}", "a()"},
      {"another comment", {"{/*", "*/}"}, "<!-- registry:a -->\n<!-- /registry:a -->", ""},
  };
  for (const auto& [name, comment, text, expected] : rows) {
    std::string found;
    for (const Block& block : scan(text, {.comment = comment})) {
      found += std::string(block.name) + "(" + std::string(block.body) + ")";
    }
    EXPECT_EQ(found, expected) << name;
  }
  EXPECT_EQ(opening_marker("a", {"#", ""}) + closing_marker("a", {"/*", "*/"}),
            "# registry:a/* /registry:a */");
}

TEST(Scan, TakesTimeInProportionToAnyText) {
  const auto repeated = [](const std::string& piece) {
    std::string text;
    while (text.size() < 1'000'000) text += piece;
    return text;
  };
  for (const std::string piece : {"- ", "> ", "> - ", "- \n\n", "```\n", "# registry:a ",
                                  "# registry:a\n", "# registry:", " ", "-\t"}) {
    const std::string text = repeated("- ").substr(0, 1000) + "\n" + repeated(piece);
    EXPECT_TRUE(scan(text, {.comment = {"#", ""}, .is_markdown = true}).empty()) << piece;
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
