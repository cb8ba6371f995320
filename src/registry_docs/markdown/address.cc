#include "registry_docs/markdown/address.h"

#include <algorithm>

#include "registry_docs/markdown/escapes.h"
#include "text/ascii.h"
#include "text/code_point.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t npos = std::string_view::npos;

bool is_any_of(char c, std::string_view characters) { return characters.find(c) != npos; }

bool is_same_but_for_case(std::string_view one, std::string_view lower) {
  return std::ranges::equal(one, lower, {}, text::lower);
}

// The size of the character that `text` begins with if it may stand in an address, or 0.
std::size_t address_character_size(std::string_view text) {
  const char c = text[0];
  if (text::is_ascii(c)) return c > ' ' && c <= '~' && !is_any_of(c, "<>\"'`\\") ? 1 : 0;
  const text::CodePoint character = text::code_point_at(text, 0);
  return text::is_letter_or_number(character.value) ? character.size : 0;
}

std::string_view without_last_punctuation(std::string_view address) {
  while (!address.empty() && is_any_of(address.back(), "?!.,:;*_~&|([{")) {
    address.remove_suffix(1);
  }
  return address;
}

}  // namespace

std::size_t scheme_size(std::string_view text, std::size_t colon) {
  constexpr std::size_t longest = 5;
  std::size_t begin = colon;
  while (begin > 0 && colon - begin <= longest && text::is_letter(text[begin - 1])) --begin;
  const std::string_view scheme = text.substr(begin, colon - begin);
  for (const std::string_view linked : {"https", "http", "ftp"}) {
    if (is_same_but_for_case(scheme, linked)) return scheme.size();
  }
  return 0;
}

std::string_view leading_address(std::string_view text, std::size_t scheme) {
  const std::size_t host = scheme + std::string_view("://").size();
  std::size_t open = 0;  // brackets
  std::size_t end = host;
  while (end < text.size()) {
    const std::size_t size = address_character_size(text.substr(end));
    const bool closes = is_any_of(text[end], ")]}");
    if (size == 0 || (closes && open == 0)) break;
    if (closes) --open;
    if (is_any_of(text[end], "([{")) ++open;
    end += size;
  }
  const std::string_view address = without_last_punctuation(text.substr(0, end));
  return address.size() > host ? address : std::string_view{};
}

void append_address(std::string& to, std::string_view address) {
  to += '<';
  for (std::size_t at = 0; at < address.size(); ++at) {
    to += address[at];
    if (address[at] == '&' && is_entity(address.substr(at))) to += "amp;";
  }
  to += '>';
}

}  // namespace registry_docs::markdown
