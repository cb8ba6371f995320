#include "json/scanner.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "json/escapes.h"
#include "json/number.h"
#include "json/runs.h"
#include "registry_docs/text.h"

namespace json {
namespace {

constexpr std::size_t deepest(Rules rules) { return rules == Rules::registry ? 256 : 1000; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool is_surrogate(char32_t code_point) { return code_point >= 0xD800 && code_point <= 0xDFFF; }

// A quick look at the names of an object, which most objects pass: whether already the size
// and the first letters of each tell it from all others. The factors tell the members apart
// that a registry's objects mostly have. With every object's names sorted instead, reading
// takes 1.8 times as long.
class NameCheck {
 public:
  void add(std::string_view name) {
    if (name.size() < 2) {
      surely_differ_ = false;
      return;
    }
    const std::size_t first = static_cast<unsigned char>(name[0]);
    const std::size_t second = static_cast<unsigned char>(name[1]);
    const std::size_t mixed = name.size() + first + second * 4;
    const std::uint64_t bit = std::uint64_t{1} << (mixed % 64);
    if ((seen_ & bit) != 0) surely_differ_ = false;
    seen_ |= bit;
  }

  [[nodiscard]] bool surely_differ() const { return surely_differ_; }

 private:
  std::uint64_t seen_ = 0;
  bool surely_differ_ = true;
};

// An order that is quick to tell, since most names differ in size. Equal names stand in the
// order of the document.
bool equal_names_adjoin(const Token* left, const Token* right) {
  const std::string_view text = left->text();
  const std::string_view other = right->text();
  if (text.size() != other.size()) return text.size() < other.size();
  const int order = text.compare(other);
  return order != 0 ? order < 0 : left < right;
}

}  // namespace

template <Rules rules>
void Scanner<rules>::read() {
  const char* at = skip_blanks(source_.json.data());
  const bool is_object = *at == '{';
  if (*at == '\0' || (rules == Rules::message && !is_object)) {
    refuse_syntax(source_, at, "a JSON object");
  }
  at = skip_blanks(read_value(at));
  if (at != end_) refuse_syntax(source_, at, "nothing after the document");
}

template <Rules rules>
const char* Scanner<rules>::read_value(const char* at) {
  switch (*at) {
    case '"':
      return read_string(at);
    case '{':
      return read_object(at);
    case '[':
      return read_array(at);
    case 't':
      return read_word(at, "true", Kind::boolean);
    case 'f':
      return read_word(at, "false", Kind::boolean);
    case 'n':
      return read_word(at, "null", Kind::null);
    default:
      return read_number(at);
  }
}

template <Rules rules>
const char* Scanner<rules>::read_object(const char* at) {
  const std::size_t object = open(at, Kind::object);
  at = skip_blanks(at + 1);
  if (*at != '}') at = read_members(at, object);
  close(object, 0);
  return at + 1;
}

template <Rules rules>
const char* Scanner<rules>::read_members(const char* at, std::size_t object) {
  NameCheck names;
  for (;;) {
    at = read_name(at);
    if constexpr (rules == Rules::registry) names.add(tokens_.back().text());
    const char* const value = at;
    at = read_value(value);
    if constexpr (rules == Rules::message) add_bytes(value, at);
    at = skip_blanks(at);
    if (*at != ',') break;
    at = skip_blanks(at + 1);
  }
  if (*at != '}') refuse_syntax(source_, at, "a comma or a closing brace");
  if (!names.surely_differ()) require_distinct_names(object);
  return at;
}

// Ends at the member's value.
template <Rules rules>
const char* Scanner<rules>::read_name(const char* at) {
  if (*at != '"') refuse_syntax(source_, at, "a member's name between double quotes");
  at = skip_blanks(read_string(at));
  if (*at != ':') refuse_syntax(source_, at, "a colon after the member's name");
  return skip_blanks(at + 1);
}

template <Rules rules>
const char* Scanner<rules>::read_array(const char* at) {
  const std::size_t array = open(at, Kind::array);
  at = skip_blanks(at + 1);
  std::size_t elements = 0;
  if (*at != ']') at = read_elements(at, elements);
  close(array, elements);
  return at + 1;
}

template <Rules rules>
const char* Scanner<rules>::read_elements(const char* at, std::size_t& elements) {
  for (;;) {
    ++elements;
    at = skip_blanks(read_value(at));
    if (*at != ',') break;
    at = skip_blanks(at + 1);
  }
  if (*at != ']') refuse_syntax(source_, at, "a comma or a closing bracket");
  return at;
}

template <Rules rules>
const char* Scanner<rules>::read_string(const char* at) {
  const char* const begin = at + 1;
  const char* const end = plain_end(begin, end_);
  if (*end != '"') return read_escaped_string(begin, end);
  add(Kind::string, std::string_view(begin, end));
  return end + 1;
}

// The string's text begins at `begin`, and is plain up to `at`.
template <Rules rules>
const char* Scanner<rules>::read_escaped_string(const char* begin, const char* at) {
  const bool is_kept = keeps();
  std::string text(begin, is_kept ? at : begin);
  bool is_well_formed = true;
  while (*at == '\\') {
    const auto [code_point, end] = read_escape(source_, at);
    if (is_surrogate(code_point)) {
      is_well_formed = false;
    } else if (is_kept) {
      registry_docs::append_code_point(text, code_point);
    }
    at = plain_end(end, end_);
    if (is_kept) text.append(end, at);
  }
  if (*at == '\0') refuse_syntax(source_, at, "a double quote at the end of the string");
  if (*at != '"') refuse_syntax(source_, at, escape_or_character);
  if (!is_well_formed) {
    refuse(source_, begin, "expected a pair of surrogates, found one alone");
  }
  if (!is_kept) return at + 1;
  decoded_.push_back({.spelling = {begin, at}, .text = std::move(text)});
  tokens_.emplace_back(Kind::string, decoded_.back().text);
  return at + 1;
}

template <Rules rules>
const char* Scanner<rules>::read_number(const char* at) {
  const char* const begin = at;
  Kind kind = Kind::integer;
  if (*at == '-') ++at;
  at = *at == '0' ? at + 1 : skip_digits(at, "a JSON value");
  if (*at == '.') {
    kind = Kind::floating;
    at = skip_digits(at + 1, "a digit after the decimal point");
  }
  if (*at == 'e' || *at == 'E') {
    kind = Kind::floating;
    ++at;
    if (*at == '+' || *at == '-') ++at;
    at = skip_digits(at, "a digit in the exponent");
  }
  const std::string_view number(begin, at);
  if (rules == Rules::registry && !can_be_held(kind, number)) {
    refuse(source_, begin, number_refusal(kind, number));
  }
  add(kind, number);
  return at;
}

template <Rules rules>
const char* Scanner<rules>::read_word(const char* at, std::string_view word, Kind kind) {
  const char* const begin = at;
  for (const char c : word) {
    if (*at != c) refuse_syntax(source_, at, "a JSON value");
    ++at;
  }
  add(kind, std::string_view(begin, at));
  return at;
}

template <Rules rules>
const char* Scanner<rules>::skip_blanks(const char* at) const {
  return blanks_end(at, end_);
}

// One digit at least.
template <Rules rules>
const char* Scanner<rules>::skip_digits(const char* at, std::string_view expected) const {
  if (!is_digit(*at)) refuse_syntax(source_, at, expected);
  while (is_digit(*at)) ++at;
  return at;
}

// Whether a value that stands here is kept; all others need but be in order.
template <Rules rules>
bool Scanner<rules>::keeps() const {
  return rules == Rules::registry || depth_ <= 1;
}

template <Rules rules>
void Scanner<rules>::add(Kind kind, std::string_view text) {
  if (keeps()) tokens_.emplace_back(kind, text);
}

// Adds the value of a member of the document itself, if it is an array or an object.
template <Rules rules>
void Scanner<rules>::add_bytes(const char* begin, const char* end) {
  if (*begin == '[') add(Kind::array, {begin, end});
  if (*begin == '{') add(Kind::object, {begin, end});
}

// Returns the index of the list's token, if it is kept, which `close` completes.
template <Rules rules>
std::size_t Scanner<rules>::open(const char* at, Kind kind) {
  constexpr std::size_t most = deepest(rules);
  if (depth_ == most) {
    refuse(source_, at,
           "expected at most " + std::to_string(most) + " levels of nesting, found more");
  }
  ++depth_;
  if (keeps()) tokens_.emplace_back(kind, 0, 1);
  return tokens_.size() - 1;
}

template <Rules rules>
void Scanner<rules>::close(std::size_t list, std::size_t elements) {
  if (keeps()) tokens_[list] = {tokens_[list].kind(), elements, tokens_.size() - list};
  --depth_;
}

template <Rules rules>
void Scanner<rules>::require_distinct_names(std::size_t object) const {
  std::vector<const Token*> names;
  const Token* const end = tokens_.data() + tokens_.size();
  for (const Token* at = &tokens_[object] + 1; at != end; at += 1 + (at + 1)->span()) {
    names.push_back(at);
  }
  std::ranges::sort(names, equal_names_adjoin);
  const Token* again = nullptr;  // the first name that stands a second time
  for (std::size_t i = 1; i < names.size(); ++i) {
    if (names[i]->text() != names[i - 1]->text()) continue;
    if (again == nullptr || names[i] < again) again = names[i];
  }
  if (again == nullptr) return;
  refuse(source_, spelling_of(*again, decoded_).data(),
         "expected each member once, found " + registry_docs::in_quotes(again->text()) +
             " a second time");
}

template class Scanner<Rules::registry>;
template class Scanner<Rules::message>;

}  // namespace json
