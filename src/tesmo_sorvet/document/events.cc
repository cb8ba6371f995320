#include "tesmo_sorvet/document/events.h"

#include <algorithm>

#include "registry_docs/text.h"
#include "tesmo_sorvet/document/number.h"

namespace tesmo_sorvet {
namespace {

constexpr std::size_t deepest = 256;

}  // namespace

bool Events::Null() {
  tokens_.push_back({.kind = Kind::null, .span = 1, .text = "null"});
  return true;
}

bool Events::Bool(bool held) {
  tokens_.push_back({.kind = Kind::boolean, .span = 1, .text = held ? "true" : "false"});
  return true;
}

bool Events::RawNumber(const char* text, rapidjson::SizeType size, bool) {
  const std::string_view number(text, size);
  const Kind kind = number_kind(number);
  if (kind == Kind::integer && !integer_value(number)) {
    return refuse(offset_of(number),
                  "expected an integer from -2^63 to 2^64 - 1, found " + std::string(number));
  }
  if (kind == Kind::floating && !floating_value(number)) {
    return refuse(offset_of(number),
                  "expected a number that a double can hold, found " + std::string(number));
  }
  tokens_.push_back({.kind = kind, .span = 1, .text = number});
  return true;
}

bool Events::String(const char* text, rapidjson::SizeType size, bool) {
  const std::string_view decoded(text, size);
  if (has_escapes_ && registry_docs::find_ill_formed(decoded)) {
    return refuse(offset_of(decoded), "expected a pair of surrogates, found one alone");
  }
  tokens_.push_back({.kind = Kind::string, .span = 1, .text = decoded});
  return true;
}

bool Events::Key(const char* text, rapidjson::SizeType size, bool is_copy) {
  return String(text, size, is_copy);
}

bool Events::EndObject(rapidjson::SizeType) {
  return require_distinct_names(open_.back()) && close();
}

bool Events::EndArray(rapidjson::SizeType) { return close(); }

bool Events::open(Kind kind) {
  if (open_.size() == deepest) {
    return refuse(stream_.Tell(), "expected at most 256 levels of nesting, found more");
  }
  open_.push_back(tokens_.size());
  tokens_.push_back({.kind = kind, .span = 1, .text = {}});
  return true;
}

bool Events::close() {
  tokens_[open_.back()].span = static_cast<std::uint32_t>(tokens_.size() - open_.back());
  open_.pop_back();
  return true;
}

bool Events::require_distinct_names(std::size_t object) {
  names_.clear();
  for (std::size_t at = object + 1; at < tokens_.size(); at += 1 + tokens_[at + 1].span) {
    names_.push_back(tokens_[at].text);
  }
  std::ranges::sort(names_, [](std::string_view left, std::string_view right) {
    return left.size() != right.size() ? left.size() < right.size() : left < right;
  });
  const auto repeated = std::ranges::adjacent_find(names_);
  if (repeated == names_.end()) return true;
  const std::size_t later = std::max(offset_of(repeated[0]), offset_of(repeated[1]));
  return refuse(later, "expected each member once, found \"" + std::string(*repeated) +
                           "\" a second time");
}

bool Events::refuse(std::size_t offset, std::string message) {
  refusal_ = {.offset = offset, .message = std::move(message)};
  return false;
}

std::size_t Events::offset_of(std::string_view text) const {
  return static_cast<std::size_t>(text.data() - stream_.head_);
}

}  // namespace tesmo_sorvet
