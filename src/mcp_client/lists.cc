#include "mcp_client/lists.h"

#include <algorithm>
#include <utility>

#include "mcp_client/message.h"
#include "mcp_client/mismatch.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using json::MaybeNode;
using registry_docs::visible_in_quotes;

std::string answer_to(const List& list) {
  return " in the answer to " + std::string(list.method);
}

// The bytes between the brackets, without the white space around them.
std::string_view elements_of(const MaybeNode& entries, const List& list) {
  if (!entries || entries->kind() != json::Kind::array) {
    throw Mismatch("an array of " + std::string(list.member) + answer_to(list),
                   entries ? visible_in_quotes(entries->spelling()) : "none");
  }
  constexpr std::string_view around = " \t\r\n";
  std::string_view elements = entries->spelling();
  elements = elements.substr(1, elements.size() - 2);
  elements.remove_prefix(std::min(elements.find_first_not_of(around), elements.size()));
  return elements.substr(0, elements.find_last_not_of(around) + 1);
}

std::string cursor_in(const MaybeNode& next_cursor, const List& list,
                      std::set<std::string>& seen) {
  if (!next_cursor) return {};
  std::string cursor(next_cursor->spelling());
  const std::string place = "nextCursor" + answer_to(list);
  if (next_cursor->kind() != json::Kind::string) {
    throw Mismatch("a string as " + place, visible_in_quotes(cursor));
  }
  if (!seen.insert(cursor).second) {
    throw Mismatch("another " + place, visible_in_quotes(cursor) + " again");
  }
  return cursor;
}

}  // namespace

std::string Pages::add(const List& list, json::Document&& result) {
  const std::array<std::string_view, 2> names = {list.member, "nextCursor"};
  const auto [entries, next_cursor] = members_of(result, names);
  const std::string_view elements = elements_of(entries, list);
  std::string cursor = cursor_in(next_cursor, list, cursors_);
  if (elements_.empty()) {
    elements_ = std::move(result).take(elements);
  } else if (!elements.empty()) {
    (elements_ += ',') += elements;
  }
  return cursor;
}

std::string Pages::take() {
  cursors_.clear();
  return "[" + std::exchange(elements_, {}) + "]";
}

}  // namespace mcp_client
