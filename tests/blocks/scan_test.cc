#include "registry_docs/blocks/scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
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
    EXPECT_EQ(block.open.data() + block.open.size(), block.body.data());
    EXPECT_EQ(block.body.data() + block.body.size(), block.close.data());
    found += std::string(block.name) + "(" + std::string(block.body) + ")";
  }
  return found;
}

TEST(Scan, FindsTheBlocksOfATextFromLeftToRight) {
  const struct {
    const char* name;
    const char* text;  // here and in the bodies, "[a]" and "[/a]" are markers
    const char* blocks;
  } rows[] = {
      {"empty text", "", ""},
      {"no markers", "# Title\n\n<!-- a comment -->\n", ""},
      {"empty body", "[a]\n[/a]", "a()"},
      {"lines around and within", "x\n[a]\n1\n2\n[/a]\ny\n", "a(1\n2\n)"},
      {"markers amid their lines", "x[a]\n1[/a]y[b]\n2\n[/b]z", "a(1)b(2\n)"},
      {"nested", "[a]\n1[b]\n2[/b]3[/a]4", "a(1[b]\n2[/b]3)"},
      {"interleaved", "[a]\n1[b]\n2[/a]3[/b]", "a(1[b]\n2)"},
      {"one name nested", "[a]\n1[a]\n2[/a]3[/a]", "a(1[a]\n2)"},
      {"one name repeated", "[a]\nx[/a][b]\ny[/b][a]\nz[/a]", "a(x)b(y)a(z)"},
      {"orphan before a block", "[a]\n1[b]\n2[/b]", "b(2)"},
      {"orphans within and behind", "[a]\n[c]\n1[/a][b]\n[d]\n[/b][c]\n", "a([c]\n1)b([d]\n)"},
      {"orphan opened again", "[a]\n1[a]\n2[b]\n3[/b][/a]", "a(1[a]\n2[b]\n3[/b])"},
      {"two orphans, then closed", "[b]\n[a]\n1[a]\n[a]\n2[/a][b]\n", "a(1[a]\n[a]\n2)"},
      {"closed before it is opened", "[/a]\n[a]\n1[/a][/a]", "a(1)"},
      {"closed before it is opened only", "[/a][b]\n[/b][a]\n1", "b()"},
      {"closed within another only", "[a]\n[b]\n[/a][/b][b]\n1[a]\n2", "a([b]\n)"},
      {"no line feed behind the opening", "[a]x[/a] [a] \n[/a] [a]\t\n[/a] [a]", ""},
      {"CR LF behind the opening", "[a]\r\nx\r\n[/a]\r\n", ""},
      {"CR LF within", "[a]\nx\r\n[/a]", "a(x\r\n)"},
      {"two openings on a line", "[a][a]\nx[/a]", "a(x)"},
      {"longer and shorter names", "[ab]\n1[/a]2[/abc]3[/ab]", "ab(1[/a]2[/abc]3)"},
      {"case", "[a]\n1[/A]2[/a]", "a(1[/A]2)"},
      {"composed and decomposed", "[é]\n1[/e\u0301]2[/é]", "é(1[/e\u0301]2)"},
      {"behind a broken opening", "<!-- <!-- registry:[a]\nx[/a]", "a(x)"},
      {"behind a broken closing", "[a]\nx<!-- /registry:[/a]", "a(x<!-- /registry:)"},
      {"ill-formed UTF-8", "[\xFF]\n[/\xFF][\xC3]\n[/\xC3][a]\n\x80[/a]", "a(\x80)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(scanned(markers(row.text)), markers(row.blocks));
  }
}

TEST(Scan, TakesNoOtherSpellingForAMarker) {
  for (const std::string near :
       {"!-- registry:a -->", "<!--registry:a -->", "<!--  registry:a -->",
        "<!-- Registry:a -->", "<!-- registry :a -->", "<!-- registry: a -->",
        "<!-- registry:a  -->", "<!-- registry:a-->", "<!-- registry:a -- >",
        "<!-- registry:a --\n>", "<!-- registry:-->", "<!-- / registry:a -->",
        "<!--/registry:a -->", "<!-- /registry:a-->"}) {
    SCOPED_TRACE(near);
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

bool is_name(const std::string& text) {  // of the characters that the soups below hold
  return !text.empty() && std::ranges::all_of(text, [](unsigned char c) {
    return std::isalnum(c) != 0 || c == '-' || c >= 0x80;
  });
}

std::string searched(const std::string& text) {
  std::string found;
  for (std::size_t at = 0; (at = text.find("<!-- registry:", at)) != std::string::npos; ++at) {
    const std::size_t name_end = std::min(text.find(" -->\n", at), text.size());
    const std::string name = text.substr(at + 14, name_end - at - 14);
    const std::size_t body = name_end + 5;
    const std::string closing = "<!-- /registry:" + name + " -->";
    const std::size_t close = is_name(name) ? text.find(closing, body) : std::string::npos;
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
