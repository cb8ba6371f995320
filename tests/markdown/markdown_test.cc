#include "registry_docs/markdown.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "registry_docs/text.h"

namespace registry_docs::markdown {
namespace {

TEST(Markdown, KeepsACodeSpanAsItIsAndMakesACellOneLineThatEndsNowhereElse) {
  EXPECT_EQ(code("") + code(" a|b\n`\\ "), "``` a|b\n`\\ `");
  EXPECT_EQ(cell(""), "");
  EXPECT_EQ(cell(" \n\t\u3000\r\n"), "");
  EXPECT_EQ(cell("  first line\n\tsecond | third  "), "first line second \\| third");
  EXPECT_EQ(cell("||a\\|b\\"), "\\|\\|a\\\\|b\\");
  EXPECT_EQ(cell("`größe` {x} $1\r\n*"), "`größe` {x} $1 *");
}

TEST(Cell, SplitsAtTheWhiteSpaceOfUnicodeAndAtNothingElse) {
  const auto is_white_space = [](char32_t c) {
    return (c >= 0x9 && c <= 0xD) || (c >= 0x1C && c <= 0x20) || c == 0x85 || c == 0xA0 ||
           c == 0x1680 || (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 ||
           c == 0x202F || c == 0x205F || c == 0x3000;
  };
  for (char32_t c = 0; c <= 0xD7FF; ++c) {
    if (c == '|') continue;
    std::string character;
    append_code_point(character, c);
    const std::string text = character + "a" + character + character + "b" + character;
    ASSERT_EQ(cell(text), is_white_space(c) ? "a b" : text) << std::hex << std::uint32_t{c};
    ASSERT_EQ(strip(text), is_white_space(c) ? "a" + character + character + "b" : text);
  }
}

TEST(Table, WritesTheCellsThatEachRowHas) {
  Table table({"A", "B|"});
  EXPECT_EQ(table.text(), "| A | B| |\n| --- | --- |");
  table.row().plain(" a|b\n").code("a|b").cell(" a|b\n");
  table.row().cell("");
  table.row().plain("").plain("2");
  EXPECT_EQ(table.text(),
            "| A | B| |\n| --- | --- |\n|  a|b\n | `a|b` | a\\|b |\n|  |\n|  | 2 |");
}

TEST(Value, IsSpelledAsAReaderWritesIt) {
  using Integers = std::numeric_limits<std::int64_t>;
  using Floats = std::numeric_limits<double>;
  using List = Value::List;
  const std::pair<List, const char*> rows[] = {
      {{true, false, nullptr, "a 'b' |\n", "", "true"},
       "true, false, None, a 'b' |\n, , true"},
      {{0, 1, -12, 100000, 10'000'000'000}, "0, 1, -12, 100000, 10000000000"},
      {{Integers::min(), Integers::max()}, "-9223372036854775808, 9223372036854775807"},
      {{~std::uint64_t{0}, -0.0, 0.0, 100.0}, "18446744073709551615, -0.0, 0.0, 100.0"},
      {{-2.5, 0.1 + 0.2, 0.1F}, "-2.5, 0.30000000000000004, 0.10000000149011612"},
      {{0.0001, 0.00012345, 0.00001, -2.5e-7}, "0.0001, 0.00012345, 1e-05, -2.5e-07"},
      {{1e15, 9999999999999998.0}, "1000000000000000.0, 9999999999999998.0"},
      {{1e16, -1.25e16, 1e22, 1e23, 1e100}, "1e+16, -1.25e+16, 1e+22, 1e+23, 1e+100"},
      {{Floats::denorm_min(), Floats::min()}, "5e-324, 2.2250738585072014e-308"},
      {{Floats::max(), -Floats::infinity()}, "1.7976931348623157e+308, -inf"},
      {{Floats::infinity(), Floats::quiet_NaN()}, "inf, nan"},
      {{1, List{true, "a"}, List{}, List{List{nullptr, 1.0}}}, "1, true, a, , None, 1.0"},
      {{}, ""},
  };
  for (const auto& [values, text] : rows) EXPECT_EQ(value(values), text);
}

}  // namespace
}  // namespace registry_docs::markdown
