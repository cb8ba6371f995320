// Claims are found where a search for each of them by itself finds them, and change digits
// alone.
#include <algorithm>
#include <optional>
#include <tuple>

#include "fuzz/target.h"
#include "json/document.h"
#include "json/pretty.h"
#include "registry/claim_search.h"
#include "registry_docs/errors.h"

namespace registry_docs::fuzz {
namespace {

using registry::ClaimSearch;
using registry::KnownClaim;

std::optional<KnownClaim> known_claim(const std::string& text) {
  std::string json;
  json::append_string(json, text);
  std::optional<KnownClaim> claim;
  try {
    const json::Document declared("c", "[" + json + "]");
    json::Node(declared).for_each_element([&](const json::Node& each) {
      claim.emplace(KnownClaim{.text = registry::claim_text(each), .truths = {}});
    });
  } catch (const InputError&) {
    return std::nullopt;
  }
  for (const registry::Slot& slot : claim->text.slots) {
    auto& truth = claim->truths.emplace_back();
    truth.count = 1234;
    if (is_name(slot)) truth.names = std::make_shared<const registry::Names>(1, "a");
  }
  return claim;
}

using Place = std::tuple<std::size_t, std::size_t>;

// Where the claim stands, looked for at each byte.
std::vector<Place> places(const KnownClaim& claim, std::string_view text) {
  std::vector<Place> found;
  const std::string& anchor = claim.text.literals[anchor_of(claim.text)];
  for (std::size_t at = text.find(anchor); at != text.npos; at = text.find(anchor, at + 1)) {
    const auto match = match_around(claim.text, text, at);
    if (match) found.emplace_back(match->all.begin, match->all.end);
  }
  // Of those with the same beginning the longest.
  std::ranges::sort(found, [](const Place& left, const Place& right) {
    return std::tuple(std::get<0>(left), std::get<1>(right)) <
           std::tuple(std::get<0>(right), std::get<1>(left));
  });
  const auto begin_alike = [](const Place& left, const Place& right) {
    return std::get<0>(left) == std::get<0>(right);
  };
  found.erase(std::unique(found.begin(), found.end(), begin_alike), found.end());
  return found;
}

bool is_of_numbers(char c) { return (c >= '0' && c <= '9') || c == ','; }

void require_digits_alone(const ClaimSearch& search, const std::string& text,
                          const std::vector<registry::FoundClaim>& found) {
  std::string made;
  std::size_t copied = 0;
  for (const Part& part : parts_of(search, found, text)) {
    require(part.end <= text.size() && part.begin < part.end, "a part of the text", part.name);
    if (!part.fault.empty()) continue;
    if (part.text == text.substr(part.begin, part.end - part.begin)) continue;
    require(copied <= part.begin, "counts apart from each other", text);
    made += text.substr(copied, part.begin - copied) + part.text;
    copied = part.end;
  }
  made += text.substr(copied);
  std::string before = text;
  std::erase_if(before, is_of_numbers);
  std::erase_if(made, is_of_numbers);
  require(before == made, "the same text but for its numbers", text);
}

}  // namespace

void run(std::string_view input) {
  if (find_ill_formed(input)) return;
  std::istringstream parts{std::string(input)};
  const std::string text = next_part(parts);
  std::vector<KnownClaim> claims;
  while (parts) {
    if (auto claim = known_claim(next_part(parts))) claims.push_back(*std::move(claim));
  }
  const ClaimSearch search(claims);
  std::vector<std::size_t> all;
  for (std::size_t i = 0; i < claims.size(); ++i) all.push_back(i);
  const auto found = search.find(text, all, {});
  for (const std::size_t i : all) {
    std::vector<Place> together;
    for (const auto& [claim, match] : found) {
      if (claim == i) together.emplace_back(match.all.begin, match.all.end);
    }
    require(together == places(claims[i], text), "what is found alone", input.data());
  }
  require_digits_alone(search, text, found);
}

}  // namespace registry_docs::fuzz
