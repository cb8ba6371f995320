#include "registry_docs/markdown/tidy.h"

#include <gtest/gtest.h>

namespace registry_docs::markdown {
namespace {

// What Prettier 3.10 makes of them.
TEST(Tidy, LeavesNothingToFormatters) {
  const struct {
    const char* name;
    std::string text;
    std::string expected;
  } rows[] = {
      {"nothing", "\n\n", ""},
      {"blank lines", "\n\na\n\n\nb\n\n", "a\n\nb"},
      {"table", "| a | `b` |\n| --- | --- |\n| long \\| | |\n",
       "| a       | `b` |\n| ------- | --- |\n| long \\| |     |"},
      {"sides", "| a | b | c |\n| :-: | --: | :-- |\n| 123456 | 12345 | 1 |",
       "|   a    |     b | c   |\n| :----: | ----: | :-- |\n| 123456 | 12345 | 1   |"},
      {"wide characters",
       "|a|\n|-|\n|中文|\n|👩‍💻|\n|1️⃣|\n|é→☂|\n|☂️|",
       "| a    |\n| ---- |\n| 中文 |\n| 👩‍💻   |\n| 1️⃣   |\n| é→☂  |\n| "
       "☂️ "
       " "
       " "
       "|"},
      {"in an item", "- a\n\n  | b |\n  | - |", "- a\n\n  | b   |\n  | --- |"},
      {"no table", "| a |\n| b |", "| a |\n| b |"},
      {"rows of other lengths", "|a|\n|-|\n|b|c|", "|a|\n|-|\n|b|c|"},
      {"code", "```\n|a|\n|-|\n- a\n\n  b\n- c\n```", "```\n|a|\n|-|\n- a\n\n  b\n- c\n```"},
      {"tight list", "- a\n  - b\n- c", "- a\n  - b\n- c"},
      {"behind a loose item", "- a\n\n  b\n- c\n- d", "- a\n\n  b\n\n- c\n- d"},
      {"list in a loose item", "- a\n\n  b\n  - c\n  - d\n- e",
       "- a\n\n  b\n\n  - c\n  - d\n\n- e"},
      {"loose item in a tight one", "- a\n  - b\n\n    c\n  - d\n- e",
       "- a\n  - b\n\n    c\n\n  - d\n\n- e"},
      {"two lists", "- a\n\n  b\n\nc\n\n- d\n- e", "- a\n\n  b\n\nc\n\n- d\n- e"},
  };
  for (const auto& [name, text, expected] : rows) {
    std::string made = "before" + text;
    tidy(made, 6);
    EXPECT_EQ(made, "before" + expected) << name;
    tidy(made, 6);
    EXPECT_EQ(made, "before" + expected) << name;
  }
}

}  // namespace
}  // namespace registry_docs::markdown
