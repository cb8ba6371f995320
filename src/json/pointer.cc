#include "json/pointer.h"

#include <algorithm>
#include <charconv>

namespace json {
namespace {

int hexadecimal(char c) {
  constexpr std::string_view digits = "0123456789abcdefABCDEF";
  const std::size_t place = digits.find(c);
  if (place == std::string_view::npos) return -1;
  return static_cast<int>(place < 16 ? place : place - 6);
}

// Of one name in a JSON pointer.
std::string without_tilde_escapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_escape =
        text[i] == '~' && i + 1 < text.size() && (text[i + 1] == '0' || text[i + 1] == '1');
    plain += !is_escape ? text[i] : text[i + 1] == '0' ? '~' : '/';
    if (is_escape) ++i;
  }
  return plain;
}

MaybeNode element(const Node& array, std::string_view number) {
  std::size_t index = 0;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), index);
  MaybeNode found;
  if (error != std::errc() || end != number.data() + number.size()) return found;
  array.for_each_element([&](const Node& each) {
    if (index-- == 0) found = each;
  });
  return found;
}

MaybeNode child(const Node& node, const std::string& name) {
  if (node.kind() == Kind::object) return node.find(name);
  return node.kind() == Kind::array ? element(node, name) : std::nullopt;
}

}  // namespace

MaybeNode pointed_at(Node node, std::string_view pointer) {
  while (!pointer.empty()) {
    if (pointer.front() != '/') return std::nullopt;
    const std::size_t end = pointer.find('/', 1);
    const MaybeNode next = child(node, without_tilde_escapes(pointer.substr(1, end - 1)));
    if (!next) return std::nullopt;
    node = *next;
    pointer.remove_prefix(std::min(end, pointer.size()));
  }
  return node;
}

std::string last_name(std::string_view pointer) {
  const std::size_t slash = pointer.rfind('/');
  if (slash == std::string_view::npos) return {};
  return without_tilde_escapes(pointer.substr(slash + 1));
}

std::string without_percent_escapes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? hexadecimal(text[i + 1]) : -1;
    const int low = high >= 0 ? hexadecimal(text[i + 2]) : -1;
    plain += low < 0 ? text[i] : static_cast<char>(high * 16 + low);
    if (low >= 0) i += 2;
  }
  return plain;
}

}  // namespace json
