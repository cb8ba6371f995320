#include "text/glob.h"

#include <algorithm>
#include <span>

namespace text {
namespace {

constexpr std::size_t none = std::string_view::npos;

bool fits_token(char32_t character, const Glob::Token& token, const Glob& glob) {
  const auto begin = glob.ranges.begin() + static_cast<std::ptrdiff_t>(token.ranges_begin);
  const auto end = glob.ranges.begin() + static_cast<std::ptrdiff_t>(token.ranges_end);
  const bool is_found = std::any_of(begin, end, [character](const Glob::Range& range) {
    return range.first <= character && character <= range.last;
  });
  return is_found != token.is_negated;
}

// Only the last star is ever given more: what a later place would leave for the tokens before
// it is less.
bool fits_part(std::string_view name, std::span<const Glob::Token> tokens, const Glob& glob) {
  std::size_t token = 0;
  std::size_t behind_star = none;
  std::size_t star_end = 0;
  for (std::size_t at = 0; at < name.size() || token < tokens.size();) {
    if (token < tokens.size() && tokens[token].is_star) {
      behind_star = ++token;
      star_end = at;
      continue;
    }
    if (at < name.size() && token < tokens.size()) {
      const auto [value, size] = character_at(name, at, glob.unit);
      if (fits_token(value, tokens[token], glob)) {
        at += size;
        ++token;
        continue;
      }
    }
    if (behind_star == none || star_end == name.size()) return false;
    star_end += character_at(name, star_end, glob.unit).size;
    at = star_end;
    token = behind_star;
  }
  return true;
}

// The parts of a path that are still to be looked at. One of them may be empty.
class Rest {
 public:
  explicit Rest(std::string_view path) : path_(path), end_(path.find('/')) {}

  [[nodiscard]] bool is_empty() const { return begin_ == none; }
  [[nodiscard]] std::string_view part() const { return path_.substr(begin_, end_ - begin_); }
  void drop_part() {
    begin_ = end_ == none ? none : end_ + 1;
    if (begin_ != none) end_ = path_.find('/', begin_);
  }

 private:
  std::string_view path_;
  std::size_t begin_ = 0;
  std::size_t end_;
};

}  // namespace

// As for the tokens of a part, with "**" for the star.
bool fits(std::string_view path, const Glob& glob) {
  const std::vector<Glob::Part>& parts = glob.parts;
  std::size_t part = 0;
  std::size_t behind_directories = none;
  Rest rest(path);
  Rest below = rest;
  while (!rest.is_empty() || part < parts.size()) {
    if (part < parts.size() && parts[part].is_directories) {
      behind_directories = ++part;
      below = rest;
      continue;
    }
    if (!rest.is_empty() && part < parts.size()) {
      const auto [is_directories, begin, end] = parts[part];
      if (fits_part(rest.part(), std::span(glob.tokens).subspan(begin, end - begin), glob)) {
        rest.drop_part();
        ++part;
        continue;
      }
    }
    if (behind_directories == none || below.is_empty()) return false;
    below.drop_part();
    rest = below;
    part = behind_directories;
  }
  return true;
}

}  // namespace text
