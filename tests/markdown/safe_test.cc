#include "registry_docs/markdown/safe.h"

#include <gtest/gtest.h>
#include "registry_docs/markdown/mdx.h"

namespace registry_docs::markdown {
namespace {

struct Row {
  const char* name;
  std::string_view text;
  std::string_view expected;
};

template <std::size_t size, typename Append>
void expect_rows(const Row (&rows)[size], Append append,
                 const std::string& before = "before") {
  for (const auto& [name, text, expected] : rows) {
    std::string to = before;
    append(to, text);
    EXPECT_EQ(to, before + std::string(expected)) << name;
  }
}

TEST(AppendInline, LeavesProseAsItIs) {
  constexpr std::string_view texts[] = {
      "Reads a file (UTF-8), e.g. a.txt - or 3 * 4; x = y + 1. \"Quoted\", 'quoted': 100% "
      "#1!",
      "snake_case_name, größe_der_datei, a<, b & c, AT&T, nodes[] and 2 > 1",
      "C:\\Users\\name \\d+ | a ~ b _ c {x} ${y} $z @user :tada: `**` ``a ` b`` a://b",
      "日本語 שלום 👩\u200D🔬 \u00A0x",
  };
  for (const std::string_view text : texts) {
    std::string to;
    append_inline(to, text);
    EXPECT_EQ(to, text);
  }
}

TEST(AppendInline, EscapesOnlyWhatWouldAct) {
  constexpr Row rows[] = {
      {"nothing", " \t\n", ""},
      {"white space", "  a \t b\n\n c\r\nd\re ", "a b c d e"},
      {"placeholder", "figma.com/(file|design)/<fileKey>",
       "figma.com/(file|design)/\\<fileKey>"},
      {"wildcards", "*.ext **/*.ext", "\\*.ext \\*\\*/\\*.ext"},
      {"stars apart", "0 2 * * *", "0 2 \\* \\* \\*"},
      {"underscores", "__init__ _a a_", "\\_\\_init\\_\\_ \\_a a\\_"},
      {"tildes", "~5 a~b", "\\~5 a\\~b"},
      {"brackets", "[a](b) ![c] [] d[](e)", "\\[a\\](b) !\\[c\\] [] d\\[\\](e)"},
      {"comment", "<!-- registry:x -->", "\\<\\!-- registry:x -->"},
      {"angles", "<b> < <= </i> <?", "\\<b> < \\<= \\</i> \\<?"},
      {"entities", "&amp; &#35; & &; &x", "\\&amp; \\&#35; & &; \\&x"},
      {"backslashes", "\\* \\a \\\\ \\", "\\\\\\* \\a \\\\\\\\ \\\\"},
      {"end of a heading", "C #", "C \\#"},
      {"hash at the end of a word", "C#", "C#"},
      {"heading", "# a # b", "\\# a # b"},
      {"list", "- a - b", "\\- a - b"},
      {"number", "12. a 3. b", "12\\. a 3. b"},
      {"year", "2024.", "2024\\."},
      {"quotation", "> a > b", "\\> a > b"},
      {"rules", "---\n---", "\\--- ---"},
      {"table's rule over lines", "|\n:-", "\\| :-"},
  };
  expect_rows(rows, append_inline);
}

TEST(AppendInline, KeepsCodeSpans) {
  constexpr Row rows[] = {
      {"as they are", "`*a*` ``b`c`` `<d>` `\\`", "`*a*` ``b`c`` `<d>` `\\`"},
      {"unmatched", "`a ``b` ```", "`a ``b` \\`\\`\\`"},
      {"escaped", "\\`a` \\\\`b`", "\\\\\\`a` \\\\`b\\`"},
      {"over lines", "`a  \n  b`", "`a b`"},
      {"fence", "a:\n```json\n{`b`}\n```\nc", "a: ``{`b`}`` c"},
      {"empty fence", "```\n```\n# a", "` ` # a"},
      {"no fence, since a word follows", "```a\nb\n``` c", "`a b ` c"},
      {"marker", "`a <!-- /registry:x --> *b*`",
       "<code>a \\<\\!-- /registry:x --> \\*b\\*</code>"},
      {"marker over lines", "` <!--\nregistry:x --> `",
       "<code>\\<\\!-- registry:x --></code>"},
  };
  expect_rows(rows, append_inline);
}

TEST(AppendInline, MakesLinksOfAddresses) {
  constexpr Row rows[] = {
      {"sentence", "See https://a.b/c_*d*.", "See <https://a.b/c_*d>\\*."},
      {"parentheses", "(HTTP://a.b/(c)), d", "(<HTTP://a.b/(c)>), d"},
      {"code behind it", "ftp://a.b`c`", "<ftp://a.b>`c`"},
      {"entity", "https://a?b&amp;c&d", "<https://a?b&amp;amp;c&d>"},
      {"no host", "https://<a>.b", "https\\://\\<a>.b"},
      {"part of a word", "_https://a.b", "\\_https\\://a.b"},
      {"escaped", "\\https://a.b", "\\https\\://a.b"},
      {"not a scheme of the web", "xhttps://a.b file://a", "xhttps://a.b file://a"},
      {"letters of all scripts", "https://ä.ö/ü。", "<https://ä.ö/ü>。"},
      {"without a scheme", "www.a.b/*c*", "www\\.a.b/\\*c\\*"},
  };
  expect_rows(rows, append_inline);
}

TEST(AppendInline, ShowsHiddenCharacters) {
  using namespace std::string_view_literals;
  constexpr Row rows[] = {
      {"controls", "a\0b\x1B[1m\x7F\u0085"sv, "a\\x00b\\x1b\\[1m\\x7f\\x85"},
      {"formats", "\u202E\u200B\uFEFF\u2028\U000E0041",
       "\\u202e\\u200b\\ufeff\\u2028\\U000e0041"},
      {"in code", "`\u202E`", "`\\u202e`"},
      {"behind a backslash", "\\\x1B", "\\\\\\\\x1b"},
      {"no UTF-8", "a\xFFz", "a\\xffz"},
  };
  expect_rows(rows, append_inline);
}

TEST(AppendBlocks, WritesParagraphsLineByLine) {
  constexpr Row rows[] = {
      {"nothing", " \n\t\n", ""},
      {"paragraphs", "\n\n a\n\n \n b\n", "a\n\n  b"},
      {"wrapped prose", "Lists the files of a directory, and of all below\nit.",
       "Lists the files of a directory, and of all below\n  it."},
      {"sentences", "Lists the files of a directory that was named.\nDoes no more.",
       "Lists the files of a directory that was named.\\\n  Does no more."},
      {"short lines", "a\nb", "a\\\n  b"},
      {"list", "A:\n- b\n  * c\n2) d\n• e",
       "A:\\\n  \\- b\\\n  &emsp;\\* c\\\n  2\\) d\\\n  • e"},
      {"wrapped item", "A:\n-   an item that is too long for one line of a\n    text",
       "A:\\\n  \\- an item that is too long for one line of a\n  text"},
      {"common indent", "a\n      b\n        c", "a\\\n  b\\\n  &emsp;c"},
      {"the first line's own indent", "      a\n  b", "a\\\n  b"},
      {"indent of a source", "a\nb\n            c", "a\\\n  b\\\n  c"},
      {"tab", "a\nb\n\tc", "a\\\n  b\\\n  &emsp;&emsp;c"},
      {"heading", "# a\nb\n===\nc\n---", "\\# a\\\n  b\\\n  \\===\\\n  c\\\n  \\---"},
      {"table", "|a|\n|-|\n|b|", "|a|\\\n  \\|-|\\\n  |b|"},
      {"definition", "[a]: b", "\\[a\\]: b"},
      {"backslash at the end of a line", "a\\\nb\\", "a\\\\\\\n  b\\\\"},
      {"code over lines", "`a\nb` c", "`a b` c"},
      {"no code over items", "- `a\n- b`", "\\- \\`a\\\n  \\- b\\`"},
  };
  expect_rows(rows, [](auto& to, auto text) { append_blocks(to, text, "  "); });
}

TEST(AppendBlocks, KeepsFencedBlocks) {
  constexpr Row rows[] = {
      {"alone", "```json\n{\n\n  *a*\n}\n```", "```JSON\n  {\n\n    *a*\n  }\n  ```"},
      {"within prose", "a\n~~~\nb\n~~~\nc", "a\n\n  ```text\n  b\n  ```\n\n  c"},
      {"not closed", "````c++\n```\na\n\n", "````c++\n  ```\n  a\n  ````"},
      {"indented", "a:\n\n    ```\n      b\n   c\n    ```",
       "a:\n\n  ```text\n    b\n  c\n  ```"},
      {"deeper mark", "```\n    ```\na", "````text\n      ```\n  a\n  ````"},
      {"says more", "``` a b\nc", "```text\n  a b\n  c\n  ```"},
      {"backquotes behind it", "```a``` b", "`a` b"},
      {"empty", "```", "```text\n\n  ```"},
      {"hidden characters", "```\n\u202E\t\n```", "```text\n  \\u202e\n  ```"},
      {"marker", "```\n<!-- registry:x -->\n\n&\n```",
       "<pre><code>&lt;!-- registry:x --&gt;&#10;&#10;&amp;&#10;</code></pre>"},
  };
  expect_rows(
      rows, [](auto& to, auto text) { append_blocks(to, text, "  "); }, "- ");
}

TEST(AppendBlocks, BeginsAFencedBlockInALineOfItsOwn) {
  constexpr Row rows[] = {{"behind a text", "```\na\n```", "\n\n  ```text\n  a\n  ```"},
                          {"behind blanks", "~~~\na", "\n\n  ```text\n  a\n  ```"},
                          {"not at once", "b\n```\na", "b\n\n  ```text\n  a\n  ```"}};
  expect_rows(
      rows, [](auto& to, auto text) { append_blocks(to, text, "  "); }, "- a:");
}

TEST(AppendCodeSpan, HoldsAnyText) {
  constexpr Row rows[] = {
      {"nothing", "", ""},
      {"plain", "a|b *c*", "`a|b *c*`"},
      {"backquotes", "a`b``c", "```a`b``c```"},
      {"backquotes at the ends", "`a`", "`` `a` ``"},
      {"blanks at the ends", " a ", "`  a  `"},
      {"blank at one end", " a", "` a`"},
      {"blanks only", "  ", "`  `"},
      {"lines", "a\n b", "`a b`"},
      {"marker", "<!-- registry:x -->", "<code>\\<\\!-- registry:x --></code>"},
  };
  expect_rows(rows, append_code_span);
}

TEST(FitCell, MakesOneLineWithoutBars) {
  constexpr Row rows[] = {
      {"prose", "a|b \\| c", "a\\|b \\| c"},
      {"code", "`a|b\\|c` `|", "<code>a&#124;b\\\\&#124;c</code> `\\|"},
      {"lines", "a \n\n b\\\nc\\\\\nd", "a b c\\\\ d"},
      {"code over lines", "`a\\\nb`", "`a\\ b`"},
      {"unmatched backquotes", "``a`|", "``a`\\|"},
      {"fence", "a\n\n```sh\nb | c\n```\n\nd", "a `b \\| c` d"},
  };
  expect_rows(rows, [](std::string& to, std::string_view text) {
    to += text;
    fit_cell(to, std::string_view("before").size());
  });
}

TEST(MakeMdx, LeavesNothingThatActs) {
  constexpr Row rows[] = {
      {"braces", "${a} } \\{", "$\\{a\\} \\} \\\\\\{"},
      {"angles", "a < b <c> <5 <=", "a \\< b \\<c> \\<5 \\<="},
      {"code", "`{a} <b>` {", "`{a} <b>` \\{"},
      {"code of a program", "import a\nexport b\nimported",
       "&#105;mport a\\\n&#101;xport b\\\n&#105;mported"},
      {"address", "https://a.b/_{c}?(d)",
       "[https\\://a.b/\\_\\{c\\}?(d)](https://a.b/_%7Bc%7D?%28d%29)"},
      {"fence", "```\n{a} <b>\n\nimport\n```\n{", "```text\n{a} <b>\n\nimport\n```\n\n\\{"},
      {"its marker", "{/* registry:x */}", "\\{/\\* registry:x \\*/\\}"},
      {"its marker in code", "`{/* registry:x */}`",
       "<code>&#123;&#47;&#42; registry&#58;x &#42;&#47;&#125;</code>"},
      {"its marker in a fence", "```\n{/*registry\n```",
       "<pre><code>&#123;&#47;&#42;registry&#10;</code></pre>"},
      {"a marker in a fence", "```\n<!-- registry:x -->{}\n```",
       "<pre><code>&lt;&#33;&#45;&#45; registry&#58;x "
       "&#45;&#45;&gt;&#123;&#125;&#10;</code></pre>"},
  };
  for (const auto& [name, text, expected] : rows) {
    std::string to = "before\n";
    const std::size_t begin = to.size();
    append_blocks(to, text, "");
    make_mdx(to, begin);
    EXPECT_EQ(to, "before\n" + std::string(expected)) << name;
  }
}

TEST(AppendHtml, EndsNothing) {
  constexpr Row rows[] = {
      {"characters", "<a b=\"c\">&amp;'", "&lt;a b=&quot;c&quot;&gt;&amp;amp;'"},
      {"blank lines", "a\n\n \nb\r\n", "a\n&#10; \nb\n"},
      {"hidden", "\x1B", "\\x1b"},
  };
  expect_rows(rows, append_html);
}

}  // namespace
}  // namespace registry_docs::markdown
