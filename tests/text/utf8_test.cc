#include <gtest/gtest.h>

#include <sstream>

#include "registry_docs/text.h"

namespace registry_docs {
namespace {

using namespace std::string_view_literals;

TEST(FindIllFormed, NamesTheFirstByteOfTheFirstIllFormedSequence) {
  for (const std::string_view text :
       {""sv, "a\0b\x7F"sv, "\u0080\u07FF\u0800\uD7FF\uE000\uFFFF"sv,
        "\uFEFF\uFDD0\U00010000\U0010FFFF"sv}) {
    EXPECT_EQ(find_ill_formed(text), std::nullopt) << text;
  }
  constexpr std::size_t most_around = 40;  // longer than what is read at a time
  std::istringstream sequences(
      "\xFF \xFE \x80 \xBF \xC0\x80 \xC1\xBF \xE0\x80\x80 \xE0\x9F\xBF "
      "\xF0\x80\x80\x80 \xF0\x8F\xBF\xBF \xED\xA0\x80 \xED\xBF\xBF \xF4\x90\x80\x80 "
      "\xF5\x80\x80\x80 \xF8\x88\x80\x80\x80 \xFC\x84\x80\x80\x80\x80 \xC3 \xE2\x82 "
      "\xF0\x9F \xF0\x9F\x98 \xC3\xC3\xA9 \xE2\x82\xE2\x82\xAC");
  for (std::string sequence; sequences >> sequence;) {
    for (const std::string before : {"", "é", "\U0010FFFF"}) {
      for (std::size_t i = 0; i < most_around * most_around; ++i) {
        const std::string start = before + std::string(i / most_around, 'a');
        const std::string text = start + sequence + std::string(i % most_around, 'z');
        ASSERT_EQ(find_ill_formed(text), start.size()) << testing::PrintToString(text);
      }
    }
  }
}

TEST(Visible, EscapesWhatATerminalWouldActOn) {
  EXPECT_EQ(visible("größe \\ 'x' € 🙂 \u00A0\uE000"),
            "größe \\ 'x' € 🙂 \u00A0\uE000");
  EXPECT_EQ(visible("\0\a\t\r\n\x1B[2J\x7F"sv), "\\x00\\x07\\x09\\x0d\\n\\x1b[2J\\x7f");
  EXPECT_EQ(visible("\u0080\u009B1m\u00AD"), "\\x80\\x9b1m\\xad");
  EXPECT_EQ(visible("\u200D\u2028\u202Eoverride\u2066\uFEFF\U000E0041"),
            "\\u200d\\u2028\\u202eoverride\\u2066\\ufeff\\U000e0041");
  EXPECT_EQ(visible("\xFF\xED\xA0\x80\xC3"), "\\xff\\xed\\xa0\\x80\\xc3");
}

}  // namespace
}  // namespace registry_docs
