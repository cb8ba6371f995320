#include "registry/claim_search.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace registry {
namespace {

std::vector<std::string_view> words_of(const std::vector<KnownClaim>& claims) {
  std::vector<std::string_view> words;
  words.reserve(claims.size());
  for (const KnownClaim& claim : claims) {
    words.push_back(claim.text.literals[anchor_of(claim.text)]);
  }
  return words;
}

bool touches(const Span& span, std::span<const Span> others) {
  const auto other = std::ranges::partition_point(
      others, [&](const Span& each) { return each.end <= span.begin; });
  return other != others.end() && other->begin < span.end;
}

}  // namespace

ClaimSearch::ClaimSearch(std::vector<KnownClaim> claims)
    : claims_(std::move(claims)), finder_(words_of(claims_)) {}

std::vector<FoundClaim> ClaimSearch::find(std::string_view text,
                                          std::span<const std::size_t> which,
                                          std::span<const Span> left_out) const {
  std::vector<FoundClaim> found;
  const auto look = [&](std::size_t index, std::size_t end) {
    if (!std::ranges::binary_search(which, index)) return;
    const ClaimText& claim = claims_[index].text;
    const std::size_t at = end - claim.literals[anchor_of(claim)].size();
    auto match = match_around(claim, text, at);
    if (match && !touches(match->all, left_out)) found.push_back({index, *std::move(match)});
  };
  // Most of a file may be left out.
  const auto look_between = [&](std::size_t begin, std::size_t end) {
    if (begin >= end) return;
    finder_.find(text.substr(begin, end - begin),
                 [&](std::size_t index, std::size_t place) { look(index, begin + place); });
  };
  std::size_t begin = 0;
  for (const Span& each : left_out) {
    look_between(begin, each.begin);
    begin = std::max(begin, each.end);
  }
  look_between(begin, text.size());
  const auto is_before = [](const FoundClaim& left, const FoundClaim& right) {
    return std::tuple(left.match.all.begin, left.claim, right.match.all.end) <
           std::tuple(right.match.all.begin, right.claim, left.match.all.end);
  };
  const auto begin_alike = [](const FoundClaim& left, const FoundClaim& right) {
    return left.claim == right.claim && left.match.all.begin == right.match.all.begin;
  };
  std::ranges::sort(found, is_before);
  found.erase(std::unique(found.begin(), found.end(), begin_alike), found.end());
  return found;
}

}  // namespace registry
