#include "gen_registry_docs/diff/line_edits.h"

#include <algorithm>
#include <unordered_map>

#include "gen_registry_docs/diff/common_lines.h"

namespace gen_registry_docs::diff {
namespace {

using Lines = std::span<const std::string_view>;

// A number for each distinct line, and how often it stands on each side.
class Numbers {
 public:
  struct Count {
    std::size_t in_old = 0;
    std::size_t in_new = 0;
  };

  Numbers(Lines old_lines, Lines new_lines) {
    for (const std::string_view line : old_lines) ++counts_[number(line)].in_old;
    for (const std::string_view line : new_lines) ++counts_[number(line)].in_new;
  }

  [[nodiscard]] int at(std::string_view line) const { return numbers_.at(line); }
  [[nodiscard]] const Count& count(int number) const {
    return counts_[static_cast<std::size_t>(number)];
  }

 private:
  std::size_t number(std::string_view line) {
    const auto [place, is_new] = numbers_.emplace(line, static_cast<int>(numbers_.size()));
    if (is_new) counts_.emplace_back();
    return static_cast<std::size_t>(place->second);
  }

  std::unordered_map<std::string_view, int> numbers_;
  std::vector<Count> counts_;
};

// Some lines of a text: their numbers, and where they stand in it.
struct Sequence {
  std::vector<int> numbers = {};
  std::vector<std::size_t> places = {};
};

// The lines that stand on both sides. The others surely go, or come, and need no search.
Sequence common_lines(Lines lines, const Numbers& numbers) {
  Sequence common;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const int number = numbers.at(lines[i]);
    const Numbers::Count& count = numbers.count(number);
    if (count.in_old == 0 || count.in_new == 0) continue;
    common.numbers.push_back(number);
    common.places.push_back(i);
  }
  return common;
}

// How many lines at least can stay: the longest run of increasing places, among the lines that
// stand once on each side.
std::size_t fewest_that_stay(const Sequence& from, const Sequence& to,
                             const Numbers& numbers) {
  const auto is_single = [&](int number) {
    return numbers.count(number).in_old == 1 && numbers.count(number).in_new == 1;
  };
  std::unordered_map<int, std::size_t> places;
  for (std::size_t i = 0; i < to.numbers.size(); ++i) places[to.numbers[i]] = i;
  std::vector<std::size_t> ends;  // by length of a run: the least place that one ends with
  for (const int number : from.numbers) {
    if (!is_single(number)) continue;
    const std::size_t place = places.at(number);
    const auto longer = std::ranges::lower_bound(ends, place);
    if (longer == ends.end()) {
      ends.push_back(place);
    } else {
      *longer = place;
    }
  }
  return ends.size();
}

// Whether what they have in common is found soon, for common_places takes more steps the more
// numbers of the shorter side go and the more the other side is longer.
bool is_found_soon(const Sequence& from, const Sequence& to, const Numbers& numbers) {
  const auto [shorter, longer] = std::minmax({from.numbers.size(), to.numbers.size()});
  const std::size_t most_gone = shorter - fewest_that_stay(from, to, numbers);
  const std::size_t columns = most_gone + longer - shorter + 1;
  constexpr std::size_t most_steps = 2'000'000;
  return columns < most_steps / (most_gone + 1);
}

// The edits between lines that stay, each given as a pair of places, from top to bottom.
class Edits {
 public:
  explicit Edits(std::size_t at) : old_at_(at), new_at_(at) {}

  void keep(std::size_t old_place, std::size_t new_place) {
    if (old_place > old_at_ || new_place > new_at_) {
      found_.push_back({old_at_, old_place, new_at_, new_place});
    }
    old_at_ = old_place + 1;
    new_at_ = new_place + 1;
  }

  // The lines that follow the last are kept as well.
  std::vector<LineEdit> finish(std::size_t old_size, std::size_t new_size) {
    keep(old_size, new_size);
    return std::move(found_);
  }

 private:
  std::vector<LineEdit> found_;
  std::size_t old_at_;
  std::size_t new_at_;
};

std::size_t same_at_begin(Lines left, Lines right) {
  const auto [at, other] = std::ranges::mismatch(left, right);
  return static_cast<std::size_t>(at - left.begin());
}

std::size_t same_at_end(Lines left, Lines right) {
  const auto [at, other] =
      std::mismatch(left.rbegin(), left.rend(), right.rbegin(), right.rend());
  return static_cast<std::size_t>(at - left.rbegin());
}

}  // namespace

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return lines;
}

std::vector<LineEdit> line_edits(Lines old_lines, Lines new_lines) {
  const std::size_t begin = same_at_begin(old_lines, new_lines);
  const std::size_t end = same_at_end(old_lines.subspan(begin), new_lines.subspan(begin));
  const std::size_t old_end = old_lines.size() - end;
  const std::size_t new_end = new_lines.size() - end;
  old_lines = old_lines.subspan(begin, old_end - begin);
  new_lines = new_lines.subspan(begin, new_end - begin);
  const Numbers numbers(old_lines, new_lines);
  Sequence from = common_lines(old_lines, numbers);
  Sequence to = common_lines(new_lines, numbers);
  Edits edits(begin);
  if (is_found_soon(from, to, numbers)) {
    for (const auto& [left, right] : common_places(from.numbers, to.numbers)) {
      edits.keep(begin + from.places[left], begin + to.places[right]);
    }
  }
  return edits.finish(old_end, new_end);
}

}  // namespace gen_registry_docs::diff
