#include <gtest/gtest.h>

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
  for (const std::string_view sequence :
       {"\xFF", "\xFE", "\x80", "\xBFz", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF",
        "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xED\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF8\x88\x80\x80\x80", "\xE2\x82", "\xF0\x9F\x98z", "\xC3"}) {
    for (const std::string before : {"", "1234567", "12345678", "é", "12345678é12345678"}) {
      EXPECT_EQ(find_ill_formed(before + std::string(sequence)), before.size()) << sequence;
    }
  }
}

}  // namespace
}  // namespace registry_docs
