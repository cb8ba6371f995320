#include "json/place.h"

#include <algorithm>

#include "json/pointer.h"
#include "json/runs.h"

namespace json {
namespace {

// Walks over a text that a document was made of, and so is JSON. A NUL stands at its end.
class Walk {
 public:
  explicit Walk(std::string_view text) : at_(text.data()), end_(at_ + text.size()) {}

  std::string_view blanks() { return passed(blanks_end(at_, end_)); }
  std::string_view sign() { return passed(at_ + 1); }

  std::string_view value() {
    if (*at_ == '"') return passed(string_end(at_));
    if (*at_ == '[' || *at_ == '{') return passed(list_end(at_));
    const char* end = at_;
    while (std::string_view(",]} \t\r\n").find(*end) == std::string_view::npos && end != end_)
      ++end;
    return passed(end);
  }

 private:
  std::string_view passed(const char* to) {
    const char* const from = at_;
    at_ = to;
    return {from, to};
  }

  [[nodiscard]] const char* string_end(const char* at) const {
    for (at = plain_end(at + 1, end_); *at != '"'; at = plain_end(at + 2, end_)) {
    }
    return at + 1;
  }

  [[nodiscard]] const char* list_end(const char* at) const {
    std::size_t depth = 0;
    do {
      const char c = *at;
      if (c == '[' || c == '{') ++depth;
      if (c == ']' || c == '}') --depth;
      at = c == '"' ? string_end(at) : at + 1;
    } while (depth != 0);
    return at;
  }

  const char* at_;
  const char* end_;
};

}  // namespace

Place place_of(const Document& document) {
  Walk walk(document.json());
  walk.blanks();
  return {Node(document), walk.value()};
}

std::vector<Child> children_of(const Place& list) {
  std::vector<Child> children;
  Walk walk(list.text);
  const auto add = [&](std::string name, const Node& node, bool is_member) {
    walk.sign();  // a bracket or a comma
    Child child{.name = std::move(name), .value = {node, {}}};
    child.before = walk.blanks();
    if (is_member) {
      child.spelling = walk.value();
      const std::string_view before_colon = walk.blanks();
      walk.sign();
      const std::string_view behind_colon = walk.blanks();
      child.colon = {before_colon.data(), behind_colon.data() + behind_colon.size()};
    }
    child.value.text = walk.value();
    walk.blanks();
    children.push_back(std::move(child));
  };
  if (list.node.kind() == Kind::object) {
    list.node.for_each_member(
        [&](std::string_view name, const Node& node) { add(std::string(name), node, true); });
  } else if (list.node.kind() == Kind::array) {
    list.node.for_each_element(
        [&](const Node& node) { add(std::to_string(children.size()), node, false); });
  }
  return children;
}

std::optional<Place> pointed_at(Place place, std::string_view pointer) {
  while (!pointer.empty()) {
    const std::size_t end = std::min(pointer.find('/', 1), pointer.size());
    const std::vector<Child> children = children_of(place);
    const auto found =
        std::ranges::find(children, last_name(pointer.substr(0, end)), &Child::name);
    if (pointer.front() != '/' || found == children.end()) return std::nullopt;
    place = found->value;
    pointer.remove_prefix(end);
  }
  return place;
}

}  // namespace json
