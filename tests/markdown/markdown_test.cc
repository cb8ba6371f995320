#include "registry_docs/markdown.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "registry_docs/text.h"

namespace registry_docs::markdown {
namespace {

TEST(Code, PutsOneBacktickOnEachSideWhateverTheTextHolds) {
  EXPECT_EQ(code(""), "``");
  EXPECT_EQ(code(" a|b\n`\\ "), "` a|b\n`\\ `");
}

TEST(Cell, MakesATextOneLineThatEndsNoCell) {
  const struct {
    const char* name;
    const char* text;
    const char* cell;
  } rows[] = {
      {"empty", "", ""},
      {"white space alone", " \n\t\u3000\r\n", ""},
      {"lines and a bar", "  first line\n\tsecond | third  ", "first line second \\| third"},
      {"bars alone", "||", "\\|\\|"},
      {"a backslash before a bar", "a\\|b\\", "a\\\\|b\\"},
      {"Markdown and other scripts", "`größe` {x} $1 日本 *", "`größe` {x} $1 日本 *"},
      {"line endings", "a\r\nb\rc\n\nd", "a b c d"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(cell(row.text), row.cell);
  }
}

// Every code point, taken by its number, so that no neighbour of a listed one slips in.
TEST(Cell, SplitsAtTheWhiteSpaceOfUnicodeAndAtNothingElse) {
  const auto is_white_space = [](char32_t c) {
    return (c >= 0x9 && c <= 0xD) || (c >= 0x1C && c <= 0x20) || c == 0x85 || c == 0xA0 ||
           c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 ||
           c == 0x202F || c == 0x205F || c == 0x3000;
  };
  for (char32_t c = 0; c <= 0x10FFFF; c = c == 0xD7FF ? 0xE000 : c + 1) {
    if (c == '|') continue;
    std::string character;
    append_code_point(character, c);
    const std::string text = character + "a" + character + character + "b" + character;
    ASSERT_EQ(cell(text), is_white_space(c) ? "a b" : text) << std::hex << std::uint32_t{c};
    ASSERT_EQ(strip(text), is_white_space(c) ? "a" + character + character + "b" : text);
  }
}

TEST(Table, WritesTheCellsThatEachRowHas) {
  using Cells = std::vector<std::string>;
  EXPECT_EQ(row(Cells{}), "|  |");
  EXPECT_EQ(row(Cells{"x"}), "| x |");
  EXPECT_EQ(row(Cells{"", " a|b ", ""}), "|  |  a|b  |  |");
  EXPECT_EQ(table({"A", "B"}, {}), (Cells{"| A | B |", "| --- | --- |"}));
  EXPECT_EQ(table({"A", "B"}, std::vector<Cells>{{"1"}, {"1", "2", "3"}, {"1", "2"}}),
            (Cells{"| A | B |", "| --- | --- |", "| 1 |", "| 1 | 2 | 3 |", "| 1 | 2 |"}));
}

TEST(Value, IsSpelledAsAReaderWritesIt) {
  using Integers = std::numeric_limits<std::int64_t>;
  using Floats = std::numeric_limits<double>;
  using List = Value::List;
  const struct {
    const char* name;
    List values;
    const char* texts;
  } rows[] = {
      {"booleans and null", {true, false, nullptr}, "true, false, None"},
      {"texts", {"a 'b' \"c\" |\n", "", "true"}, "a 'b' \"c\" |\n, , true"},
      {"integers", {0, 1, -12, 100000}, "0, 1, -12, 100000"},
      {"the widest integers",
       {Integers::min(), Integers::max(), ~std::uint64_t{0}},
       "-9223372036854775808, 9223372036854775807, 18446744073709551615"},
      {"whole",
       {0.0, -0.0, 1.0, 100.0, 9007199254740993.0},
       "0.0, -0.0, 1.0, 100.0, 9007199254740992.0"},
      {"fractions",
       {-2.5, 0.1 + 0.2, 0.1F, 123456.789, 5e-1},
       "-2.5, 0.30000000000000004, 0.10000000149011612, 123456.789, 0.5"},
      {"small",
       {0.0001, 0.00012345, 0.00001, 0.00000025, -1.5e-10},
       "0.0001, 0.00012345, 1e-05, 2.5e-07, -1.5e-10"},
      {"large",
       {1e15, 9999999999999998.0, 1e16, -1.25e16, 1e22, 1e23, 1e100},
       "1000000000000000.0, 9999999999999998.0, 1e+16, -1.25e+16, 1e+22, 1e+23, 1e+100"},
      {"the ends",
       {Floats::denorm_min(), Floats::min(), Floats::max()},
       "5e-324, 2.2250738585072014e-308, 1.7976931348623157e+308"},
      {"not finite",
       {Floats::infinity(), -Floats::infinity(), Floats::quiet_NaN()},
       "inf, -inf, nan"},
      {"nested",
       {1, List{true, "a"}, List{}, List{List{nullptr, 1.0}}},
       "1, true, a, , None, 1.0"},
      {"no items", {}, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(value(row.values), row.texts);
  }
  EXPECT_EQ(value(-0.0), "-0.0");
}

}  // namespace
}  // namespace registry_docs::markdown
