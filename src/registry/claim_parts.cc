#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "registry/claim_search.h"
#include "registry_docs/text.h"
#include "text/nearest.h"

namespace registry {
namespace {

using registry_docs::Part;
using registry_docs::visible;

std::string_view part_of(std::string_view text, const Span& span) {
  return text.substr(span.begin, span.end - span.begin);
}

// The count as the number that stands there is spelled.
std::string spelled(std::size_t count, std::string_view like) {
  std::string digits(like);
  std::erase(digits, ',');
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
  std::string right = std::to_string(count);
  if (digits == right) return std::string(like);
  if (like.find(',') == std::string_view::npos) return right;
  for (std::size_t at = right.size(); at > 3;) right.insert(at -= 3, ",");
  return right;
}

const char* noun(Fact fact) {
  return fact == Fact::tool ? "tool" : fact == Fact::prompt ? "prompt" : "resource";
}

// Makes the parts of one text.
class PartMaker {
 public:
  explicit PartMaker(std::string_view text) : text_(text) {}

  void add(const KnownClaim& claim, const Match& match) {
    for (std::size_t i = 0; i < claim.truths.size(); ++i) {
      const Truth& truth = claim.truths[i];
      if (truth.names == nullptr) {
        add_count(claim, match.slots[i], truth.count);
      } else {
        add_name(claim, match, i, *truth.names);
      }
    }
  }

  std::vector<Part> take() {
    std::ranges::stable_sort(counts_, {}, &Part::begin);
    settle_counts();
    std::ranges::stable_sort(names_, {}, &Part::begin);
    std::vector<Part> all;
    std::ranges::merge(counts_, names_, std::back_inserter(all), {}, &Part::begin,
                       &Part::begin);
    return all;
  }

 private:
  void add_count(const KnownClaim& claim, const Span& slot, std::size_t count) {
    counts_.push_back({.name = visible(claim.text.spelling),
                       .begin = slot.begin,
                       .end = slot.end,
                       .text = spelled(count, part_of(text_, slot))});
  }

  // A name at the end of a claim is tried without the full stop of a sentence, too.
  void add_name(const KnownClaim& claim, const Match& match, std::size_t place,
                const Names& names) {
    Span slot = match.slots[place];
    Span all = match.all;
    const bool is_last = slot.end == all.end;
    const auto is_right = [&] {
      const auto& allowed = claim.allowed;
      return std::ranges::binary_search(names, part_of(text_, slot)) ||
             std::ranges::find(allowed, part_of(text_, all)) != allowed.end();
    };
    const auto has_more = [&] {
      return is_last && slot.end > slot.begin && !text_.substr(slot.end - 1).empty() &&
             std::string_view("._-").find(text_[slot.end - 1]) != std::string_view::npos;
    };
    bool is_found = is_right();
    while (!is_found && has_more()) {
      all.end = --slot.end;
      is_found = slot.end > slot.begin && is_right();
    }
    if (slot.begin == slot.end) return;  // no name, but an ellipsis
    const std::string whole = visible(part_of(text_, all));
    Part part{.name = whole, .begin = slot.begin, .end = slot.end};
    if (is_found) {
      part.text = part_of(text_, slot);
    } else {
      part.fault =
          whole + " names no " + noun(claim.text.slots[place].fact) + guess(all, slot, names);
    }
    names_.push_back(std::move(part));
  }

  std::string guess(const Span& all, const Span& slot, const Names& names) {
    if (guesses_left_ == 0) return {};
    --guesses_left_;
    const std::string_view meant = text::nearest(part_of(text_, slot), names);
    if (meant.empty()) return {};
    return "; perhaps " +
           visible(std::string(part_of(text_, {all.begin, slot.begin})) + std::string(meant) +
                   std::string(part_of(text_, {slot.end, all.end})));
  }

  // One number may be what several claims speak of. Where they agree, the first speaks for
  // all.
  void settle_counts() {
    std::vector<Part> settled;
    for (Part& part : counts_) {
      if (settled.empty() || settled.back().end <= part.begin) {
        settled.push_back(std::move(part));
      } else {
        settle(settled.back(), part);
      }
    }
    counts_ = std::move(settled);
  }

  static void settle(Part& first, const Part& other) {
    const bool are_one = first.begin == other.begin && first.end == other.end;
    if (!first.fault.empty() || (are_one && first.text == other.text)) return;
    first.end = std::max(first.end, other.end);
    first.fault =
        first.name + " expects " + first.text + " here, and " + other.name + " " + other.text;
  }

  std::string_view text_;
  std::vector<Part> counts_ = {};
  std::vector<Part> names_ = {};
  std::size_t guesses_left_ = 20;  // each look goes through all names
};

}  // namespace

std::vector<Part> parts_of(const ClaimSearch& search, std::span<const FoundClaim> found,
                           std::string_view text) {
  PartMaker maker(text);
  for (const FoundClaim& each : found) maker.add(search.claims()[each.claim], each.match);
  return maker.take();
}

}  // namespace registry
