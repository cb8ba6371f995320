#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "registry_docs/text_value.h"

namespace registry_docs {
namespace {

using namespace std::literals;

static_assert(sizeof(Text) == sizeof(std::string_view));
static_assert(std::is_nothrow_move_constructible_v<Text> &&
              std::is_nothrow_move_assignable_v<Text>);

// A view of a text that is about to go is not to be had, whoever kept the bytes.
static_assert(std::is_convertible_v<const Text&, std::string_view>);
static_assert(!std::is_convertible_v<Text, std::string_view> &&
              !std::is_constructible_v<std::string_view, const Text>);
template <typename T>
concept CanBeBorrowed = requires(T&& text) {
  Text::borrowed(std::forward<T>(text));
};
static_assert(CanBeBorrowed<const std::string&> && CanBeBorrowed<const char (&)[2]> &&
              !CanBeBorrowed<std::string> && !CanBeBorrowed<Text>);
static_assert(!std::is_constructible_v<Text, std::nullptr_t>);

const char* place_of(const Text& text) { return std::string_view(text).data(); }

TEST(Text, KeepsWhatItWasMadeFrom) {
  auto gone = std::make_unique<std::array<char, 5>>(std::array{'a', 'b', '\0', 'c', '\0'});
  const std::string_view view(gone->data(), 4);
  std::vector<Text> texts = {view, std::string(view), gone->data(), Text()};
  const std::vector<Text> copies = texts;
  gone->fill('x');
  gone.reset();
  for (Text& text : texts) text = "another text";
  EXPECT_EQ(copies, (std::vector<Text>{"ab\0c"sv, "ab\0c"sv, "ab"sv, ""sv}));
}

TEST(Text, BorrowsFromItsSourceAsItsCopiesDo) {
  std::string source = "ab\0c"s;
  const Text borrowed = Text::borrowed(source);
  Text copy = borrowed;
  Text assigned = "its own";
  assigned = copy;
  const Text moved = std::move(copy);
  source[0] = 'z';
  for (const Text& text : {borrowed, assigned, moved}) {
    EXPECT_EQ(place_of(text), source.data());
    EXPECT_EQ(text, "zb\0c"sv);
  }
}

TEST(Text, StaysInItsPlaceWhenMovedAndLeavesNothingBehind) {
  Text from = "text";
  const char* const place = place_of(from);
  Text to = std::move(from);
  EXPECT_EQ(from, "");
  Text assigned = "another";
  assigned = std::move(to);
  EXPECT_EQ(to, "");
  EXPECT_EQ(place_of(assigned), place);
  EXPECT_EQ(assigned, "text");
  from = to = "used again";
  EXPECT_EQ(from, to);
}

TEST(Text, MayBeAssignedFromItself) {
  for (Text text : {Text("a-text"), Text::borrowed("a-text"), Text()}) {
    const Text before = text;
    Text& same = text;
    text = same;
    EXPECT_EQ(text, before);
    text = std::move(same);
    EXPECT_EQ(text, before);
    text = std::string_view(text).substr(text == "" ? 0 : 2);
    EXPECT_EQ(text, before == "" ? "" : "text");
  }
}

TEST(Text, IsComparedByItsBytes) {
  const std::vector<Text> sorted = {"", "a", "a\0"sv, "ab", "\u00e9"};
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    for (std::size_t j = 0; j < sorted.size(); ++j) {
      const std::string other{std::string_view(sorted[j])};
      EXPECT_EQ(sorted[i] <=> Text::borrowed(other), i <=> j) << i << ' ' << j;
      EXPECT_EQ(other == sorted[i], i == j) << i << ' ' << j;
      EXPECT_EQ(sorted[i] < std::string_view(other), i < j) << i << ' ' << j;
    }
  }
  EXPECT_TRUE("ab" == sorted[3] && sorted[3] != "a" && sorted[3] > "a");
}

}  // namespace
}  // namespace registry_docs
