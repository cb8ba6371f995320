#include "json/document.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "json/scanner.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace json {
namespace {

// What a value takes up in a registry, about.
constexpr std::size_t bytes_per_token = 16;

}  // namespace

Document::Document(std::string name, std::string json, Rules rules)
    : name_(std::move(name)), json_(std::move(json)) {
  if (const auto offset = registry_docs::find_ill_formed(json_)) {
    throw registry_docs::DecodeError(name_, *offset);
  }
  if (json_.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw registry_docs::InputError(name_ + ": expected at most 4 GiB, found more");
  }
  if (rules == Rules::message) {
    Scanner<Rules::message>({name_, json_}, tokens_, decoded_).read();
  } else {
    tokens_.reserve(json_.size() / bytes_per_token);
    Scanner<Rules::registry>({name_, json_}, tokens_, decoded_).read();
  }
}

std::string_view spelling_of(const Token& string, const std::deque<DecodedString>& decoded) {
  const std::string_view text = string.text();
  const auto found = std::ranges::find(
      decoded, text.data(), [](const DecodedString& each) { return each.text.data(); });
  return found == decoded.end() ? text : found->spelling;
}

std::string_view Document::spelling_of(const Token& token) const {
  if (token.kind() != Kind::string) return token.text();
  const std::string_view spelling = json::spelling_of(token, decoded_);
  return {spelling.data() - 1, spelling.size() + 2};
}

std::string Document::take(std::string_view part) && {
  const auto begin = static_cast<std::size_t>(part.data() - json_.data());
  json_.resize(begin + part.size());
  json_.erase(0, begin);
  return std::move(json_);
}

std::string Document::place_of(const Token& token) const {
  std::string place;
  const Token* at = &root();
  while (at != &token) {
    const bool is_object = at->kind() == Kind::object;
    const Token* child = at + 1;  // of an object, the name of its first member
    std::size_t index = 0;
    const auto end_of = [is_object](const Token* begin) {
      const Token* const value = is_object ? begin + 1 : begin;
      return value + value->span();
    };
    for (; end_of(child) <= &token; ++index) child = end_of(child);
    if (is_object) {
      place += (place.empty() ? "" : ".") + registry_docs::excerpt(child->text());
    } else {
      place += "[" + std::to_string(index) + "]";
    }
    at = is_object ? child + 1 : child;
  }
  return place;
}

}  // namespace json
