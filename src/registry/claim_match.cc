#include <algorithm>

#include "registry/claim_text.h"
#include "text/ascii.h"

namespace registry {
namespace {

using text::is_digit;

// Beyond these nothing is taken for a number or a name.
constexpr std::size_t longest_number = 40;
constexpr std::size_t longest_name = 256;

bool is_of_name(char c) {
  return text::is_letter_or_digit(c) || c == '_' || c == '.' || c == '-';
}

bool is_of_word(char c) { return text::is_letter_or_digit(c) || c == '_'; }

// Digits, or groups of three with commas between.
bool is_number(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos)
    return !text.empty() && std::ranges::all_of(text, is_digit);
  if (comma == 0 || comma > 3) return false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const bool is_comma = at >= comma && (at - comma) % 4 == 0;
    if (is_comma ? text[at] != ',' : !is_digit(text[at])) return false;
  }
  return (text.size() - comma) % 4 == 0;
}

// Whether the digit behind, or before, a point or a comma belongs to a longer number.
bool goes_on(std::string_view behind) {
  if (behind.empty()) return false;
  const bool is_point = behind[0] == '.' || behind[0] == ',';
  return is_of_word(behind[0]) || (is_point && behind.size() > 1 && is_digit(behind[1]));
}

bool goes_on_before(std::string_view before) {
  if (before.empty()) return false;
  const bool is_point = before.back() == '.' || before.back() == ',';
  return is_of_word(before.back()) ||
         (is_point && before.size() > 1 && is_digit(before[before.size() - 2]));
}

// Matches a claim from a place on, to either side.
class Matcher {
 public:
  Matcher(const ClaimText& claim, std::string_view text, std::size_t anchor, std::size_t at)
      : claim_(claim),
        text_(text),
        match_{.all = {at, at + claim.literals[anchor].size()}, .slots = {}} {
    match_.slots.resize(claim.slots.size());
  }

  std::optional<Match> run(std::size_t anchor) {
    for (std::size_t slot = anchor; slot < claim_.slots.size(); ++slot) {
      if (!(is_name(claim_.slots[slot]) ? name_behind(slot) : number_behind(slot))) return {};
    }
    for (std::size_t slot = anchor; slot-- > 0;) {
      if (!(is_name(claim_.slots[slot]) ? name_before(slot) : number_before(slot))) return {};
    }
    return std::move(match_);
  }

 private:
  // Takes what lies from the match's end to `end`, with the text behind it that must follow.
  bool take_behind(std::size_t slot, std::size_t end, std::size_t literal_at) {
    const std::string& literal = claim_.literals[slot + 1];
    if (!text_.substr(literal_at).starts_with(literal)) return false;
    match_.slots[slot] = {match_.all.end, end};
    match_.all.end = literal_at + literal.size();
    return true;
  }

  bool take_before(std::size_t slot, std::size_t begin, std::size_t end) {
    const std::string& literal = claim_.literals[slot];
    if (!text_.substr(0, begin).ends_with(literal)) return false;
    match_.slots[slot] = {begin, end};
    match_.all.begin = begin - literal.size();
    return true;
  }

  [[nodiscard]] std::size_t run_end(bool (*is_part)(char), std::size_t most) const {
    std::size_t end = match_.all.end;
    while (end < text_.size() && end - match_.all.end <= most && is_part(text_[end])) ++end;
    return end;
  }

  [[nodiscard]] std::size_t run_begin(bool (*is_part)(char), std::size_t from,
                                      std::size_t most) const {
    std::size_t begin = from;
    while (begin > 0 && from - begin <= most && is_part(text_[begin - 1])) --begin;
    return begin;
  }

  bool number_behind(std::size_t slot) {
    const auto is_part = [](char c) { return is_digit(c) || c == ','; };
    const std::size_t begin = match_.all.end;
    const bool is_last = claim_.literals[slot + 1].empty();
    for (std::size_t end = run_end(is_part, longest_number); end > begin; --end) {
      if (!is_number(text_.substr(begin, end - begin))) continue;
      const std::string_view behind = text_.substr(end);
      if (is_last) return !goes_on(behind) && take_behind(slot, end, end);
      if (take_behind(slot, end, end)) return true;
      if (behind.starts_with('+') && take_behind(slot, end, end + 1)) return true;
    }
    return false;
  }

  bool number_before(std::size_t slot) {
    const auto is_part = [](char c) { return is_digit(c) || c == ','; };
    std::size_t end = match_.all.begin;
    if (text_.substr(0, end).ends_with('+')) --end;
    const bool is_first = claim_.literals[slot].empty();
    for (std::size_t begin = run_begin(is_part, end, longest_number); begin < end; ++begin) {
      if (!is_number(text_.substr(begin, end - begin))) continue;
      const bool is_whole = !is_first || !goes_on_before(text_.substr(0, begin));
      if (is_whole && take_before(slot, begin, end)) return true;
      if (is_first) return false;
    }
    return false;
  }

  bool name_behind(std::size_t slot) {
    const std::size_t begin = match_.all.end;
    std::size_t end = run_end(is_of_name, longest_name);
    if (end - begin > longest_name) return false;
    const bool is_last = claim_.literals[slot + 1].empty();
    for (; end > begin; --end) {
      if (take_behind(slot, end, end)) return true;
      if (is_last) return false;
    }
    return false;
  }

  bool name_before(std::size_t slot) {
    const std::size_t end = match_.all.begin;
    std::size_t begin = run_begin(is_of_name, end, longest_name);
    if (end - begin > longest_name) return false;
    for (; begin < end; ++begin) {
      if (take_before(slot, begin, end)) return true;
    }
    return false;
  }

  const ClaimText& claim_;
  std::string_view text_;
  Match match_;
};

}  // namespace

std::size_t anchor_of(const ClaimText& claim) {
  const auto longest = std::ranges::max_element(claim.literals, {}, &std::string::size);
  return static_cast<std::size_t>(longest - claim.literals.begin());
}

std::optional<Match> match_around(const ClaimText& claim, std::string_view text,
                                  std::size_t at) {
  const std::size_t anchor = anchor_of(claim);
  return Matcher(claim, text, anchor, at).run(anchor);
}

}  // namespace registry
