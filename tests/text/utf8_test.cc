#include <gtest/gtest.h>

#include "registry_docs/text.h"

namespace registry_docs {
namespace {

using namespace std::string_view_literals;

TEST(FindIllFormed, NamesTheFirstByteOfTheFirstIllFormedSequence) {
  const struct {
    const char* name;
    std::string_view bytes;
    std::optional<std::size_t> offset;
  } rows[] = {{"empty", "", {}},
              {"ASCII and NUL", "a\0b\x7F"sv, {}},
              {"the ends of each length",
               "\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF",
               {}},
              {"noncharacters and a byte-order mark", "\uFEFF\uFFFE\uFDD0\U0001FFFF", {}},
              {"a lone continuation", "12345678\x80", 8},
              {"behind a whole word of ASCII", "12345678é12345678\xBF", 18},
              {"overlong of two", "\xC0\x80", 0},
              {"overlong of three", "\xE0\x9F\xBF", 0},
              {"overlong of four", "\xF0\x8F\xBF\xBF", 0},
              {"the last surrogate", "x\xED\xBF\xBF", 1},
              {"beyond the last", "\xF4\x90\x80\x80", 0},
              {"cut short by the end", "ab\xE2\x82", 2},
              {"cut short by a letter", "\xF0\x9F\x98z", 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(find_ill_formed(row.bytes), row.offset);
  }
}

}  // namespace
}  // namespace registry_docs
