#include <gtest/gtest.h>

#include <string_view>

#include "text/sentence.h"
#include "text/wildcard.h"

namespace text {
namespace {

TEST(FitsWildcards, TakesAnyCharactersForAStar) {
  struct Row {
    std::string_view name;
    std::string_view pattern;
    bool is_fit;
  };
  static constexpr std::string_view many_stars = "*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b";
  static const std::string many_letters(10'000, 'a');
  for (const Row& row : std::initializer_list<Row>{{"browser_click", "browser_*", true},
                                                   {"browser_", "browser_*", true},
                                                   {"browser", "browser_*", false},
                                                   {"a_browser_b", "browser_*", false},
                                                   {"get_all_items", "get_*_items", true},
                                                   {"get_items", "get_*_items", false},
                                                   {"aba", "ab*ba", false},
                                                   {"abba", "ab*ba", true},
                                                   {"", "*", true},
                                                   {"", "", true},
                                                   {"a", "", false},
                                                   {"a*", "a*", true},
                                                   {"abcabd", "*ab*d", true},
                                                   {"abcabde", "*ab*d", false},
                                                   {many_letters, many_stars, false}}) {
    EXPECT_EQ(fits_wildcards(row.name, row.pattern), row.is_fit)
        << row.name << " and " << row.pattern;
  }
}

TEST(FirstSentence, EndsWhereAReaderWouldStop) {
  struct Row {
    std::string_view text;
    std::string_view sentence;
  };
  for (const Row& row :
       std::initializer_list<Row>{{"", ""},
                                  {" \n\t ", ""},
                                  {"Reads a file. And more.", "Reads a file."},
                                  {"\n    Reads\n    a file.\n    And more.", "Reads a file."},
                                  {"Reads a file\n\nArgs:\n  path: where", "Reads a file"},
                                  {"Reads v1.2 of a file, e.g. README.md, i.e. text. More.",
                                   "Reads v1.2 of a file, e.g. README.md, i.e. text."},
                                  {"Runs `a. b` now. More.", "Runs `a. b` now."},
                                  {"Really? Yes!", "Really?"},
                                  {"# Title\n\nText.", "Text."},
                                  {"# Title", "Title"},
                                  {"- first. Second", "first."},
                                  {"読みます。次です。", "読みます。"},
                                  {"No stop at all", "No stop at all"}}) {
    EXPECT_EQ(first_sentence(row.text), row.sentence) << row.text;
  }
}

}  // namespace
}  // namespace text
