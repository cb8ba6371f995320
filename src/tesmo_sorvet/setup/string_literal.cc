#include "tesmo_sorvet/setup/string_literal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace tesmo_sorvet {
namespace {

constexpr const char* plain_literal = "a plain string literal";

bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// The letters before the quote: none, or a "u", which changes nothing.
void read_prefix(Source& source) {
  const std::string_view rest = source.rest();
  const auto letters =
      static_cast<std::size_t>(std::ranges::find_if_not(rest, is_letter) - rest.begin());
  const std::string_view prefix = rest.substr(0, letters);
  const bool is_literal =
      rest.substr(letters).starts_with('"') || rest.substr(letters).starts_with('\'');
  if (!is_literal) source.refuse(plain_literal);
  if (prefix.find_first_of("fF") != std::string_view::npos) {
    source.refuse(plain_literal, "an f-string");
  }
  if (prefix.find_first_of("bB") != std::string_view::npos) {
    source.refuse(plain_literal, "a bytes literal");
  }
  if (prefix.find_first_of("rR") != std::string_view::npos) {
    source.refuse(plain_literal, "a raw string");
  }
  if (!prefix.empty() && prefix != "u" && prefix != "U") source.refuse(plain_literal);
  source.skip(letters);
}

// One quote or three of them.
std::string_view read_quote(Source& source) {
  const std::string_view rest = source.rest();
  const bool is_triple = rest.size() >= 3 && rest[1] == rest[0] && rest[2] == rest[0];
  source.skip(is_triple ? 3 : 1);
  return rest.substr(0, is_triple ? 3 : 1);
}

struct Escape {
  char letter;
  char meaning;
};

constexpr std::array<Escape, 10> single_characters = {{{'\\', '\\'},
                                                       {'\'', '\''},
                                                       {'"', '"'},
                                                       {'a', '\a'},
                                                       {'b', '\b'},
                                                       {'f', '\f'},
                                                       {'n', '\n'},
                                                       {'r', '\r'},
                                                       {'t', '\t'},
                                                       {'v', '\v'}}};

bool is_scalar_value(char32_t code_point) {
  return code_point < 0xD800 || (code_point > 0xDFFF && code_point <= 0x10FFFF);
}

// A number of up to `most` digits, and how many digits it has.
std::pair<std::size_t, char32_t> digits(std::string_view text, std::size_t most, int base) {
  std::uint32_t value = 0;
  text = text.substr(0, most);
  const auto* const end =
      std::from_chars(text.data(), text.data() + text.size(), value, base).ptr;
  return {static_cast<std::size_t>(end - text.data()), value};
}

// The source stands at the letter x, u or U.
void read_hexadecimal(Source& source, std::size_t wanted, std::string& value) {
  const auto [count, code_point] = digits(source.rest().substr(1), wanted, 16);
  const std::string escape = "\\" + std::string(source.rest().substr(0, 1 + count));
  if (count != wanted) {
    source.refuse(std::to_string(wanted) + " hexadecimal digits in the escape", escape);
  }
  if (!is_scalar_value(code_point)) {
    source.refuse("an escape of a Unicode character", escape);
  }
  registry_docs::append_code_point(value, code_point);
  source.skip(1 + count);
}

// The source stands behind a backslash.
void read_escape(Source& source, std::string& value) {
  const char letter = source.peek();
  const auto* const single = std::ranges::find(single_characters, letter, &Escape::letter);
  if (single != single_characters.end()) {
    value += single->meaning;
    source.skip(1);
  } else if (letter == '\n') {
    source.skip(1);
  } else if (letter >= '0' && letter <= '7') {
    const auto [count, code_point] = digits(source.rest(), 3, 8);
    registry_docs::append_code_point(value, code_point);
    source.skip(count);
  } else if (letter == 'x' || letter == 'u' || letter == 'U') {
    read_hexadecimal(source, letter == 'x' ? 2 : letter == 'u' ? 4 : 8, value);
  } else if (letter == 'N') {
    source.refuse("the character itself or its number", "an escape by name (\\N)");
  } else {
    value += '\\';  // no escape: both characters stand for themselves
  }
}

// What stands for itself: the next character, whatever it is, and those up to the next one
// that may not.
std::string_view plain_run(std::string_view text, char quote) {
  const auto* const end =
      std::find_if(text.data() + 1, text.data() + text.size(),
                   [quote](char c) { return c == quote || c == '\\' || c == '\n'; });
  return {text.data(), end};
}

}  // namespace

void Source::skip_to_next(char c) {
  const std::size_t found = text_.find(c, at_ + 1);
  at_ = std::min(found, text_.size());
}

void Source::refuse(const std::string& expected) const {
  if (at_end()) refuse(expected, "the end of the file");
  const std::string_view line = rest().substr(0, rest().find('\n'));
  refuse(expected,
         line.empty() ? "the end of the line" : registry_docs::in_quotes(line, '\''));
}

void Source::refuse(const std::string& expected, const std::string& found) const {
  const auto line = std::ranges::count(text_.substr(0, at_), '\n') + 1;
  throw registry_docs::InputError(*path_ + ":" + std::to_string(line) + ": expected " +
                                  expected + ", found " + found);
}

std::string read_string_literal(Source& source) {
  read_prefix(source);
  const Source start = source;
  const std::string_view quote = read_quote(source);
  std::string value;
  while (!source.rest().starts_with(quote)) {
    if (source.at_end() || (source.peek() == '\n' && quote.size() == 1)) {
      start.refuse("a string literal that ends", "one without its closing quotes");
    }
    if (source.peek() == '\\') {
      source.skip(1);
      read_escape(source, value);
    } else {
      const std::string_view run = plain_run(source.rest(), quote[0]);
      value += run;
      source.skip(run.size());
    }
  }
  source.skip(quote.size());
  return value;
}

}  // namespace tesmo_sorvet
