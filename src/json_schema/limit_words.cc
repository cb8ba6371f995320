#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "json_schema/limits.h"

namespace json_schema {
namespace {

using json::Kind;
using json::Node;

// A pair of bounds, and what they count.
struct Measure {
  std::string_view lower;
  std::string_view upper;
  std::string_view one;
  std::string_view many;
};
constexpr std::array<Measure, 4> measures = {
    {{"minimum", "maximum", "", ""},
     {"minLength", "maxLength", " character", " characters"},
     {"minItems", "maxItems", " item", " items"},
     {"minProperties", "maxProperties", " property", " properties"}}};

constexpr std::string_view exclusive_minimum = "exclusiveMinimum";
constexpr std::string_view exclusive_maximum = "exclusiveMaximum";

// Of minimum and maximum, the keyword that says with `true` that they do not belong to the
// range: so they did once.
std::string_view exclusive_of(std::string_view keyword) {
  if (keyword == "minimum") return exclusive_minimum;
  return keyword == "maximum" ? exclusive_maximum : std::string_view();
}

bool is_number(const Node& value) {
  return value.kind() == Kind::integer || value.kind() == Kind::floating;
}

bool is_true(const Node& value) { return value.kind() == Kind::boolean && value.boolean(); }

Words text(std::string text) { return {{.text = std::move(text)}}; }

std::string counted(const std::string& number, const Measure& measure) {
  return number + std::string(number == "1" ? measure.one : measure.many);
}

// What a keyword says with a value of one sort. The value itself stands behind the words where
// it is a text or a number.
enum class Given : std::uint8_t { text, code, number, yes, no };
struct Phrase {
  std::string_view keyword;
  Given given;
  std::string_view words;
};
constexpr std::array<Phrase, 15> phrases = {{
    {"format", Given::text, "format "},
    {"pattern", Given::code, "matches "},
    {"contentEncoding", Given::text, "encoded in "},
    {"contentMediaType", Given::text, "of media type "},
    {"multipleOf", Given::number, "a multiple of "},
    {exclusive_minimum, Given::number, "more than "},
    {exclusive_maximum, Given::number, "less than "},
    {"uniqueItems", Given::yes, "unique items"},
    {"readOnly", Given::yes, "read-only"},
    {"writeOnly", Given::yes, "write-only"},
    {"additionalProperties", Given::no, "no other properties"},
    {"unevaluatedProperties", Given::no, "no other properties"},
    {"items", Given::no, "no other items"},
    {"additionalItems", Given::no, "no other items"},
    {"unevaluatedItems", Given::no, "no other items"},
}};

bool fits(Given given, const Node& value) {
  switch (given) {
    case Given::text:
    case Given::code:
      return value.kind() == Kind::string && !value.string().empty();
    case Given::number:
      return is_number(value);
    case Given::yes:
      return is_true(value);
    case Given::no:
      break;
  }
  return value.kind() == Kind::boolean && !value.boolean();
}

Words words_of(const Limit& limit) {
  for (const auto& [keyword, given, words] : phrases) {
    if (limit.keyword != keyword || !fits(given, limit.value)) continue;
    std::string phrase(words);
    if (given == Given::number) return text(phrase + limit.value.json());
    if (given == Given::yes || given == Given::no) return text(std::move(phrase));
    std::string value(limit.value.string());
    if (given == Given::text) return text(phrase + value);
    return {{.text = std::move(phrase)}, {.text = std::move(value), .is_code = true}};
  }
  return {{.text = std::string(limit.keyword) + ": " + limit.value.json(), .is_code = true}};
}

// Puts limits into words, and those that belong together into one.
class Wording {
 public:
  explicit Wording(const std::vector<Limit>& limits)
      : limits_(limits), is_left_(limits.size(), true) {}

  std::vector<Words> words() {
    for (std::size_t at = 0; at < limits_.size(); ++at) {
      if (is_left_[at]) add(at);
    }
    return std::move(words_);
  }

 private:
  void add(std::size_t at) {
    const Limit& limit = limits_[at];
    is_left_[at] = false;
    if (is_number(limit.value)) {
      for (const Measure& measure : measures) {
        if (limit.keyword == measure.lower || limit.keyword == measure.upper) {
          return add_bound(limit, measure);
        }
      }
    }
    if (!is_flag_of_bound(limit)) add_words(limit, "each: ", words_of(limit));
  }

  void add_bound(const Limit& limit, const Measure& measure) {
    const bool is_least = limit.keyword == measure.lower;
    const std::string number = limit.value.json();
    if (find(limit, exclusive_of(limit.keyword), is_true) < limits_.size()) {
      return add_words(limit, "each ",
                       text((is_least ? "more than " : "less than ") + number));
    }
    const std::size_t other = other_end(limit, is_least ? measure.upper : measure.lower);
    if (other == limits_.size()) {
      const char* const words = is_least ? "at least " : "at most ";
      return add_words(limit, "each ", text(words + counted(number, measure)));
    }
    is_left_[other] = false;
    const std::string end = limits_[other].value.json();
    const std::string& most = is_least ? end : number;
    const std::string range = number == end ? "exactly " : (is_least ? number : end) + " to ";
    add_words(limit, "each ", text(range + counted(most, measure)));
  }

  // The bound that makes a range with this one.
  [[nodiscard]] std::size_t other_end(const Limit& limit, std::string_view keyword) const {
    if (find(limit, exclusive_of(keyword), is_true) < limits_.size()) return limits_.size();
    return find(limit, keyword, is_number);
  }

  // Whether it is `true` for a bound that says so itself.
  [[nodiscard]] bool is_flag_of_bound(const Limit& limit) const {
    if (!is_true(limit.value)) return false;
    const bool is_least = limit.keyword == exclusive_minimum;
    if (!is_least && limit.keyword != exclusive_maximum) return false;
    return std::ranges::any_of(limits_, [&](const Limit& each) {
      return each.keyword == (is_least ? "minimum" : "maximum") && is_number(each.value) &&
             each.is_of_items == limit.is_of_items;
    });
  }

  // The first limit of this keyword and of the same values that is not in words yet, or a
  // flag.
  [[nodiscard]] std::size_t find(const Limit& like, std::string_view keyword,
                                 bool (*is_fit)(const Node&)) const {
    if (keyword.empty()) return limits_.size();
    std::size_t at = 0;
    for (; at < limits_.size(); ++at) {
      const Limit& limit = limits_[at];
      if (limit.keyword == keyword && is_fit(limit.value) &&
          limit.is_of_items == like.is_of_items && (is_left_[at] || is_fit == is_true)) {
        break;
      }
    }
    return at;
  }

  void add_words(const Limit& limit, const char* each, Words words) {
    if (limit.is_of_items) words.insert(words.begin(), {.text = each});
    if (std::ranges::find(words_, words) == words_.end()) words_.push_back(std::move(words));
  }

  const std::vector<Limit>& limits_;
  std::vector<bool> is_left_;
  std::vector<Words> words_ = {};
};

}  // namespace

std::vector<Words> words_of(const std::vector<Limit>& limits) {
  if (limits.empty()) return {};
  return Wording(limits).words();
}

}  // namespace json_schema
