#include "json/same.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "json/number.h"

namespace json {
namespace {

bool is_number(const Node& node) {
  return node.kind() == Kind::integer || node.kind() == Kind::floating;
}

// Integers beyond a double's precision are told apart by their digits.
bool are_same_numbers(const Node& left, const Node& right) {
  if (left.spelling() == right.spelling()) return true;
  const bool are_integers = left.kind() == Kind::integer && right.kind() == Kind::integer;
  const auto is_zero = [](const Node& node) { return floating_value(node.spelling()) == 0.0; };
  if (are_integers) return is_zero(left) && is_zero(right);
  return floating_value(left.spelling()) == floating_value(right.spelling());
}

bool are_same_arrays(const Node& left, const Node& right) {
  if (left.size() != right.size()) return false;
  std::vector<Node> others;
  others.reserve(right.size());
  right.for_each_element([&](const Node& element) { others.push_back(element); });
  auto other = others.begin();
  bool are_all = true;
  left.for_each_element(
      [&](const Node& element) { are_all = are_all && are_same(element, *other++); });
  return are_all;
}

using Members = std::vector<std::pair<std::string_view, Node>>;

Members sorted_members(const Node& object) {
  Members members;
  object.for_each_member(
      [&](std::string_view name, const Node& value) { members.emplace_back(name, value); });
  std::ranges::sort(members, {}, &Members::value_type::first);
  return members;
}

}  // namespace

bool are_same(const Node& left, const Node& right) {
  if (is_number(left) && is_number(right)) return are_same_numbers(left, right);
  if (left.kind() != right.kind()) return false;
  if (left.kind() == Kind::array) return are_same_arrays(left, right);
  if (left.kind() == Kind::string) return left.string() == right.string();
  if (left.kind() != Kind::object) return left.spelling() == right.spelling();
  return std::ranges::equal(
      sorted_members(left), sorted_members(right), [](const auto& one, const auto& other) {
        return one.first == other.first && are_same(one.second, other.second);
      });
}

}  // namespace json
