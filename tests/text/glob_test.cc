#include "text/glob.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace text {
namespace {

struct Row {
  std::string_view pattern;
  std::string_view path;
  bool is_fit;
};

void expect_fits(std::initializer_list<Row> rows, Unit unit = Unit::code_point) {
  for (const auto& [pattern, path, is_fit] : rows) {
    const auto glob = parse_glob(pattern, unit);
    ASSERT_TRUE(glob) << pattern;
    EXPECT_EQ(fits(path, *glob), is_fit) << pattern << " and " << path;
  }
}

TEST(Glob, StarsStayWithinAPart) {
  expect_fits({{"", "", true},           {"", "a", false},
               {"a", "", false},         {"a/b", "a/b", true},
               {"a/b", "a", false},      {"a", "a/b", false},
               {"*", "", true},          {"*", "a/b", false},
               {"*.md", ".md", true},    {"*.md", "a.md.txt", false},
               {"a*c*e", "abcde", true}, {"a*c*e", "ace", true},
               {"a*c*e", "abcd", false}, {"*ab", "aab", true},
               {"a*/b", "ax/b", true},   {"a*/b", "a/x/b", false},
               {"a*b", "a/b", false},    {"*/*", "a/b", true},
               {"*/*", "a", false},      {"?", "a", true},
               {"?", "", false},         {"a?b", "a/b", false}});
}

TEST(Glob, DoubledStarsAreAnyDirectories) {
  expect_fits({{"skills/**/SKILL.md", "skills/SKILL.md", true},
               {"skills/**/SKILL.md", "skills/a/b/SKILL.md", true},
               {"skills/**/SKILL.md", "skillsSKILL.md", false},
               {"skills/**/SKILL.md", "skills/a/xSKILL.md", false},
               {"skills/**/SKILL.md", "more/skills/SKILL.md", false},
               {"**/a", "a", true},
               {"**/a", "x/y/a", true},
               {"**/a", "xa", false},
               {"a/**", "a/b/c", true},
               {"a/**", "a", false},
               {"**", "", true},
               {"**", "a/b", true},
               {"***/a", "x/y/a", true},
               {"a/**/**/b", "a/b", true},
               {"**/a/**/b/**", "x/a/a/b/c", true},
               {"**/a/**/b/**", "x/a/a/b", false},
               {"**/a*/b", "ab/ac/b", true},
               {"a**/b", "ax/b", true},
               {"a**/b", "a/x/b", false},
               {"**b", "a/b", false},
               {R"(a/**\/b)", "a/x/b", true},
               {R"(a/**\/b)", "a/b", false}});
}

TEST(Glob, ClassesAreOfOneCharacter) {
  expect_fits({{"[a-c]", "b", true},         {"[a-c]", "d", false},
               {"[!a-c]", "d", true},        {"[^a-c]", "b", false},
               {"[]a]", "]", true},          {"[!]a]", "]", false},
               {"[a-]", "-", true},          {"[-a]", "-", true},
               {"[a-c-e]", "-", true},       {"[a-c-e]", "d", false},
               {"[z-a]", "m", false},        {"[z-a]", "z", true},
               {R"([\]-_])", "^", true},     {R"([a\-c])", "b", false},
               {R"([\\])", "\\", true},      {"[*?]", "*", true},
               {"[*?]", "a", false},         {"a[/]b", "a/b", false},
               {"a[!x]b", "a/b", false},     {"[[]", "[", true},
               {"[[:x]", ":", true},         {"[[:x]", "y", false},
               {"[[:digit:]x]", "7", true},  {"[[:digit:]x]", "x", true},
               {"[[:digit:]x]", ":", false}, {"[![:digit:]]", "7", false},
               {"[a-[:digit:]]", "4", false}});
}

TEST(Glob, ABackslashEscapes) {
  expect_fits({{R"(\*)", "*", true},
               {R"(\*)", "a", false},
               {R"(\a)", "a", true},
               {R"(\[a])", "[a]", true},
               {R"(\\)", "\\", true},
               {R"(a\/b)", "a/b", true},
               {R"(\**)", "*a", true}});
}

TEST(Glob, NothingFitsWhatHasNoMeaning) {
  for (const std::string_view pattern :
       {"[", "[]", "[!]", "[a", "[a-", "[a/b", R"([\)", R"([a\]x)", R"(a\)", "[[:digits:]]",
        "[[::]]", "[[:digit:]", R"([a-\)"}) {
    EXPECT_FALSE(parse_glob(pattern)) << pattern;
  }
}

TEST(Glob, CharactersAreCodePointsOrBytes) {
  expect_fits({{"?", "é", true},
               {"??", "é", false},
               {"[é-í]", "ë", true},
               {"[!é]", "é", false},
               {"[!é]", "ë", true},
               {"*é", "éé", true},
               {"?", "\xff", true},
               {"\xff", "ÿ", false},
               {"\xff*", "\xff\xfe", true},
               {"?", "\xc3\xff", false}});
  expect_fits({{"?", "é", false}, {"??", "é", true}, {"é", "é", true}, {"*\xa9", "é", true}},
              Unit::byte);
}

TEST(Glob, TakesTheProductOfTheLengths) {
  std::string stars;
  std::string directories;
  std::string path;
  for (int i = 0; i < 100; ++i) {
    stars += "*a";
    directories += "**/a/";
    path += "a/";
  }
  const std::string letters(10'000, 'a');
  expect_fits({{stars + "b", letters, false},
               {stars, letters, true},
               {directories + "b", path + "a", false},
               {directories + "b", path + "b", true},
               {directories + stars + "b", path + letters, false}});
}

}  // namespace
}  // namespace text
