#include <array>
#include <string>
#include <utility>

#include "text/glob.h"

namespace text {
namespace {

struct NamedClass {
  std::u32string_view name;
  std::array<Glob::Range, 4> ranges;  // an unused one is of no character
};

constexpr Glob::Range unused = {U'\1', U'\0'};

constexpr std::array<NamedClass, 12> named_classes = {{
    {U"alnum", {{{U'0', U'9'}, {U'A', U'Z'}, {U'a', U'z'}, unused}}},
    {U"alpha", {{{U'A', U'Z'}, {U'a', U'z'}, unused, unused}}},
    {U"blank", {{{U' ', U' '}, {U'\t', U'\t'}, unused, unused}}},
    {U"cntrl", {{{U'\0', U'\x1f'}, {U'\x7f', U'\x7f'}, unused, unused}}},
    {U"digit", {{{U'0', U'9'}, unused, unused, unused}}},
    {U"graph", {{{U'!', U'~'}, unused, unused, unused}}},
    {U"lower", {{{U'a', U'z'}, unused, unused, unused}}},
    {U"print", {{{U' ', U'~'}, unused, unused, unused}}},
    {U"punct", {{{U'!', U'/'}, {U':', U'@'}, {U'[', U'`'}, {U'{', U'~'}}}},
    {U"space", {{{U'\t', U'\n'}, {U'\r', U'\r'}, {U' ', U' '}, unused}}},
    {U"upper", {{{U'A', U'Z'}, unused, unused, unused}}},
    {U"xdigit", {{{U'0', U'9'}, {U'A', U'F'}, {U'a', U'f'}, unused}}},
}};

std::u32string characters_of(std::string_view pattern, Unit unit) {
  std::u32string characters;
  for (std::size_t at = 0; at < pattern.size();) {
    const auto [value, size] = character_at(pattern, at, unit);
    characters += value;
    at += size;
  }
  return characters;
}

class Parser {
 public:
  Parser(std::string_view pattern, Unit unit) : pattern_(characters_of(pattern, unit)) {
    glob_.unit = unit;
  }

  std::optional<Glob> parse() {
    do {
      if (!parse_part()) return std::nullopt;
    } while (take(U'/'));
    return std::move(glob_);
  }

 private:
  // 0 at the end, which is in no pattern that has a meaning.
  [[nodiscard]] char32_t next(std::size_t ahead = 0) const {
    return at_ + ahead < pattern_.size() ? pattern_[at_ + ahead] : U'\0';
  }
  [[nodiscard]] bool is_at_end() const { return at_ == pattern_.size(); }

  bool take(char32_t character) {
    if (is_at_end() || pattern_[at_] != character) return false;
    ++at_;
    return true;
  }

  // Leaves the slash that ends the part, without the "\" that may escape it.
  bool parse_part() {
    const std::size_t begin = glob_.tokens.size();
    if (next() == U'*' && next(1) == U'*' && take_directories()) return true;
    while (!is_at_end() && next() != U'/') {
      if (next() == U'\\' && next(1) == U'/') {
        ++at_;
        break;
      }
      if (!parse_token()) return false;
    }
    glob_.parts.push_back({.begin = begin, .end = glob_.tokens.size()});
    return true;
  }

  // Two or more stars that are all of a part. Those at the end stand for one directory or file
  // at least, as do those before an escaped slash, which git treats so.
  bool take_directories() {
    const std::size_t end = pattern_.find_first_not_of(U'*', at_);
    const std::u32string_view behind =
        end == std::u32string::npos ? U"" : std::u32string_view(pattern_).substr(end);
    const bool is_escaped = behind.starts_with(U"\\/");
    if (!behind.empty() && behind.front() != U'/' && !is_escaped) return false;
    glob_.parts.push_back({.is_directories = true});
    at_ = pattern_.size() - behind.size() + (is_escaped ? 1 : 0);
    if (behind.empty() || is_escaped) {
      const std::size_t begin = glob_.tokens.size();
      add({.is_star = true});
      glob_.parts.push_back({.begin = begin, .end = begin + 1});
    }
    return true;
  }

  bool parse_token() {
    const char32_t character = pattern_[at_++];
    if (character == U'[') return parse_class();
    if (character == U'\\' && is_at_end()) return false;
    const std::size_t begin = glob_.ranges.size();
    if (character == U'*') {
      add({.is_star = true});
    } else if (character == U'?') {
      add({.is_negated = true, .ranges_begin = begin, .ranges_end = begin});
    } else {
      add_range(character == U'\\' ? pattern_[at_++] : character);
      add({.ranges_begin = begin, .ranges_end = begin + 1});
    }
    return true;
  }

  // After its "[".
  bool parse_class() {
    const std::size_t begin = glob_.ranges.size();
    const bool is_negated = take(U'!') || take(U'^');
    do {
      if (!parse_class_item()) return false;
    } while (!take(U']'));
    add({.is_negated = is_negated, .ranges_begin = begin, .ranges_end = glob_.ranges.size()});
    return true;
  }

  bool parse_class_item() {
    if (next() == U'[' && next(1) == U':') {
      if (const auto name = class_name()) return parse_named_class(*name);
    }
    const std::optional<char32_t> first = class_character();
    if (!first) return false;
    add_range(*first);
    if (next() != U'-' || at_ + 1 == pattern_.size() || next(1) == U']') return true;
    ++at_;
    const std::optional<char32_t> last = class_character();
    if (last) glob_.ranges.push_back({.first = *first, .last = *last});
    return last.has_value();
  }

  std::optional<char32_t> class_character() {
    take(U'\\');
    if (is_at_end()) return std::nullopt;
    return pattern_[at_++];
  }

  // What stands between "[:" and ":]", unless a "]" comes first.
  [[nodiscard]] std::optional<std::u32string> class_name() const {
    const std::size_t begin = at_ + 2;
    const std::size_t end = pattern_.find(U']', begin);
    if (end == std::u32string::npos || end == begin || pattern_[end - 1] != U':') return {};
    return pattern_.substr(begin, end - 1 - begin);
  }

  bool parse_named_class(const std::u32string& name) {
    at_ += name.size() + 4;
    for (const NamedClass& each : named_classes) {
      if (each.name != name) continue;
      for (const Glob::Range& range : each.ranges) glob_.ranges.push_back(range);
      return true;
    }
    return false;
  }

  void add_range(char32_t character) { glob_.ranges.push_back({character, character}); }

  void add(const Glob::Token& token) { glob_.tokens.push_back(token); }

  std::u32string pattern_;
  std::size_t at_ = 0;
  Glob glob_;
};

}  // namespace

std::optional<Glob> parse_glob(std::string_view pattern, Unit unit) {
  return Parser(pattern, unit).parse();
}

}  // namespace text
