#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <set>

#include "json/document.h"
#include "registry/claim_search.h"
#include "text/word_finder.h"

namespace registry {
namespace {

using Texts = std::vector<std::string>;

std::vector<KnownClaim> known(const Texts& texts, const Texts& allowed = {}) {
  const auto names = [](Names all) { return std::make_shared<const Names>(std::move(all)); };
  std::vector<KnownClaim> claims;
  for (const std::string& text : texts) {
    const json::Document declared("c", "[\"" + text + "\"]");
    KnownClaim claim{.text = {}, .truths = {}, .allowed = allowed};
    json::Node(declared).for_each_element(
        [&](const json::Node& each) { claim.text = claim_text(each); });
    for (const Slot& slot : claim.text.slots) {
      claim.truths.push_back(slot.fact == Fact::tools       ? Truth{.count = 14}
                             : slot.fact == Fact::resources ? Truth{.count = 1234567}
                             : slot.fact == Fact::tool
                                 ? Truth{.names = names({"add", "search", "search_all"})}
                                 : Truth{.count = 2});
    }
    claims.push_back(std::move(claim));
  }
  return claims;
}

// The text with the right counts, and a line for each fault.
std::string settled(const std::vector<KnownClaim>& claims, const std::string& text,
                    const std::vector<Span>& left_out = {}) {
  const ClaimSearch search(claims);
  std::vector<std::size_t> all(claims.size());
  std::iota(all.begin(), all.end(), 0U);
  std::string made;
  std::string faults;
  std::size_t copied = 0;
  for (const auto& part : parts_of(search, search.find(text, all, left_out), text)) {
    if (!part.fault.empty()) {
      faults += "\n" + part.fault;
    } else if (part.text != text.substr(part.begin, part.end - part.begin)) {
      made += text.substr(copied, part.begin - copied) + part.text;
      copied = part.end;
    }
  }
  return made + text.substr(copied) + faults;
}

struct Row {
  std::string name;
  Texts claims;
  std::string text, expected;
};

const std::vector<Row> counts = {
    {"a count",
     {"**{tools} tools**"},
     "**3 tools** **14 tools** **03 tools**",
     "**14 tools** **14 tools** **14 tools**"},
    {"leading zeros of the same count", {"{tools} t"}, "014 t", "014 t"},
    {"at the end", {"of {tools}"}, "of 3. of 3\nof 3, of 33", "of 14. of 14\nof 14, of 14"},
    {"with a plus", {"{tools} t", "({tools})"}, "3+ t (3+)", "14+ t (14+)"},
    {"a plus of the claim", {"{tools}+ t"}, "3+ t 3 t", "14+ t 3 t"},
    {"with commas",
     {"{resources} r"},
     "1,024 r 999 r 12,345,678 r 1024 r",
     "1,234,567 r 1234567 r 1,234,567 r 1234567 r"},
    {"fewer without commas", {"of {tools}"}, "of 1,024", "of 14"},
    {"commas that part no thousands",
     {"{tools} t", "of {tools}"},
     "1,2 t 1,23,456 t 1234,567 t of 1,2 of 1,2345",
     "1,2 t 1,23,456 t 1234,567 t of 1,2 of 1,2345"},
    {"within a longer number or word",
     {"{tools} t", "of {tools}"},
     "1.3 t a3 t _3 t of 3.5 of 3a of 3_ of 3rd",
     "1.3 t a3 t _3 t of 3.5 of 3a of 3_ of 3rd"},
    {"beside other signs",
     {"{tools} t", "of {tools}"},
     "\xE6\x9C\x89"
     "3 t, (3 t) of 3-fold of 3",
     "\xE6\x9C\x89"
     "14 t, (14 t) of 14-fold of 14"},
    {"behind digits of the claim", {"t%20{tools}-blue"}, "t%203-blue", "t%2014-blue"},
    {"several places, either side of the longest text",
     {"{tools} t, {prompts} prompts, {resources} r"},
     "3 t, 4 prompts, 5 r",
     "14 t, 2 prompts, 1234567 r"},
    {"braces", {"{{{tools}}}"}, "{3} 3", "{14} 3"},
    {"no number", {"{tools} t", "of {tools}"}, "- t of x of ", "- t of x of "},
    {"too long for a number",
     {"of {tools}"},
     "of " + std::string(50, '7'),
     "of " + std::string(50, '7')},
    {"several that speak of one number", {"{tools} t", "*{tools} t*"}, "*3 t*", "*14 t*"},
    {"the same twice", {"{tools} t", "{tools} t"}, "3 t", "14 t"},
    {"a number within another", {"x1{tools} t", "{prompts} t"}, "x13 t", "x114 t"},
    {"numbers that overlap",
     {"of 1{tools}", "of {prompts}"},
     "of 13",
     "of 13\nof {prompts} expects 2 here, and of 1{tools} 14"},
    {"several that differ",
     {"{tools} t", "*{prompts} t*"},
     "*3 t*",
     "*3 t*\n*{prompts} t* expects 2 here, and {tools} t 14"},
};

TEST(Claims, PutTheRightCountsInTheirPlaces) {
  for (const auto& [name, claims, text, expected] : counts) {
    SCOPED_TRACE(name);
    EXPECT_EQ(settled(known(claims), text), expected);
  }
}

const std::vector<Row> names = {
    {"right ones", {"m__{tool}"}, "m__search m__add, m__search_all", ""},
    {"with signs of the sentence",
     {"m__{tool}"},
     "m__search. _m__add_ m__add... m__search--well",
     "m__search--well names no tool"},
    {"wrong ones, and what is meant",
     {"m__{tool}"},
     "m__serch. m__x!",
     "m__serch names no tool; perhaps m__search\nm__x names no tool"},
    {"one that begins with another",
     {"m__{tool}"},
     "m__search_al",
     "m__search_al names no tool; perhaps m__search_all"},
    {"an ellipsis, or none", {"m__{tool}"}, "m__... m__* m__", ""},
    {"one that is allowed", {"m__{tool}"}, "m__old. m__old", ""},
    {"text behind it",
     {"`{tool}`: "},
     "`search`: `serch`: `serch`",
     "`serch`:  names no tool; perhaps `search`: "},
    {"a full stop of the claim",
     {"call {tool}."},
     "call search. call serch.",
     "call serch. names no tool; perhaps call search."},
    {"either side of the longest text",
     {"{tool}, or else {tool}"},
     "search, or else ad",
     "search, or else ad names no tool; perhaps search, or else add"},
    {"a name and a count",
     {"{tool} of {tools} tools"},
     "add of 14 tools, ad of 14 tools",
     "ad of 14 tools names no tool; perhaps add of 14 tools"},
    {"too long for a name", {"m__{tool}"}, "m__" + std::string(257, 'a'), ""},
};

TEST(Claims, FindWrongNamesAndLeaveThem) {
  for (const auto& [name, claims, text, faults] : names) {
    SCOPED_TRACE(name);
    EXPECT_EQ(settled(known(claims, {"m__old"}), text),
              text + (faults.empty() ? "" : "\n" + faults));
  }
}

TEST(Claims, DoNotLookAtWhatIsLeftOut) {
  const std::string text = "3 t 3 t 3 t";
  EXPECT_EQ(settled(known({"{tools} t"}), text, {{4, 7}}), "14 t 3 t 14 t");
  EXPECT_EQ(settled(known({"{tools} t"}), text, {{6, 9}}), "14 t 3 t 3 t");
}

TEST(WordFinder, FindsWhatASearchForEachWordFinds) {
  std::mt19937 random(1);
  const auto text_of = [&random](std::size_t size) {
    std::string text;
    while (text.size() < size) text += static_cast<char>('a' + random() % 3);
    return text;
  };
  for (std::size_t round = 0; round < 200; ++round) {
    Texts words(1 + random() % 8);
    for (std::string& word : words) word = text_of(1 + random() % 5);
    const std::string text = text_of(60) + "-" + text_of(5);
    std::multiset<std::pair<std::size_t, std::size_t>> expected, found;
    for (std::size_t i = 0; i < words.size(); ++i) {
      for (std::size_t at = text.find(words[i]); at != std::string::npos;
           at = text.find(words[i], at + 1)) {
        expected.emplace(i, at + words[i].size());
      }
    }
    const std::vector<std::string_view> views(words.begin(), words.end());
    text::WordFinder(views).find(
        text, [&found](std::size_t word, std::size_t end) { found.emplace(word, end); });
    EXPECT_EQ(found, expected);
  }
}

}  // namespace
}  // namespace registry
