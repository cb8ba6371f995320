#include "tesmo_sorvet/document/events.h"

#include <algorithm>
#include <cstdint>

#include "registry_docs/text.h"
#include "tesmo_sorvet/document/number.h"
#include "tesmo_sorvet/excerpt.h"

namespace tesmo_sorvet {
namespace {

constexpr std::size_t deepest = 256;

// A quick look that most objects pass: whether already the size and the first letters of
// the names tell each from all others.
bool surely_differ(const std::vector<std::string_view>& names) {
  std::uint64_t seen = 0;
  for (const std::string_view name : names) {
    if (name.size() < 2) return false;
    const std::size_t first = static_cast<unsigned char>(name[0]);
    const std::size_t second = static_cast<unsigned char>(name[1]);
    const std::size_t mixed = name.size() * 5 + first + second * 3;
    const std::uint64_t bit = std::uint64_t{1} << (mixed % 64);
    if ((seen & bit) != 0) return false;
    seen |= bit;
  }
  return true;
}

// An order that is quick to tell, since most names differ in size. Equal names stand in the
// order of the document.
bool equal_names_adjoin(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return left.size() < right.size();
  const int order = left.compare(right);
  return order != 0 ? order < 0 : left.data() < right.data();
}

}  // namespace

bool Events::Null() {
  tokens_.emplace_back(Kind::null, std::string_view("null"));
  return true;
}

bool Events::Bool(bool held) {
  tokens_.emplace_back(Kind::boolean, std::string_view(held ? "true" : "false"));
  return true;
}

bool Events::RawNumber(const char* text, rapidjson::SizeType size, bool) {
  const std::string_view number(text, size);
  const Kind kind = number_kind(number);
  const bool is_held = kind == Kind::integer ? integer_value(number).has_value()
                                             : floating_value(number).has_value();
  if (!is_held) return refuse(offset_of(number), number_refusal(number));
  tokens_.emplace_back(kind, number);
  return true;
}

bool Events::String(const char* text, rapidjson::SizeType size, bool) {
  const std::string_view decoded(text, size);
  if (has_escapes_ && registry_docs::find_ill_formed(decoded)) {
    return refuse(offset_of(decoded), "expected a pair of surrogates, found one alone");
  }
  tokens_.emplace_back(Kind::string, decoded);
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
    const std::size_t bracket = stream_.Tell() - 1;
    return refuse(bracket, "expected at most 256 levels of nesting, found more");
  }
  open_.push_back(tokens_.size());
  tokens_.emplace_back(kind, std::size_t{1});
  return true;
}

bool Events::close() {
  Token& list = tokens_[open_.back()];
  list = {list.kind(), tokens_.size() - open_.back()};
  open_.pop_back();
  return true;
}

bool Events::require_distinct_names(std::size_t object) {
  names_.clear();
  for (std::size_t at = object + 1; at < tokens_.size(); at += 1 + tokens_[at + 1].span()) {
    names_.push_back(tokens_[at].text());
  }
  if (surely_differ(names_)) return true;
  std::ranges::sort(names_, equal_names_adjoin);
  const std::string_view* again = nullptr;  // the first name that stands a second time
  for (std::size_t i = 1; i < names_.size(); ++i) {
    if (names_[i] != names_[i - 1]) continue;
    if (again == nullptr || names_[i].data() < again->data()) again = &names_[i];
  }
  if (again == nullptr) return true;
  return refuse(offset_of(*again),
                "expected each member once, found " + in_quotes(*again) + " a second time");
}

bool Events::refuse(std::size_t offset, std::string message) {
  refusal_ = {.offset = offset, .message = std::move(message)};
  return false;
}

std::size_t Events::offset_of(std::string_view text) const {
  return static_cast<std::size_t>(text.data() - stream_.head_);
}

}  // namespace tesmo_sorvet
