#include "registry_docs/layouts/json_view.h"

namespace registry_docs::layouts {
namespace {

using json::Kind;
using json::Token;

View view_of(const Token& token);

const Token& token_at(const void* token) { return *static_cast<const Token*>(token); }

constexpr ListType array = {
    .size = [](const void* list) { return token_at(list).elements(); },
    .for_each =
        [](const void* list, const std::function<void(View)>& visit) {
          const Token* const begin = &token_at(list);
          for (const Token* at = begin + 1; at != begin + begin->span(); at += at->span()) {
            visit(view_of(*at));
          }
        },
};

// Ends at a member for which `visit` says so, given its name and its value.
template <typename Visit>
bool find_member(const void* object, Visit visit) {
  const Token* const begin = &token_at(object);
  for (const Token* at = begin + 1; at != begin + begin->span(); at += 1 + (at + 1)->span()) {
    if (visit(at->text(), at[1])) return true;
  }
  return false;
}

constexpr ObjectType any_object = {
    .name = "object",
    .members = {},
    .find =
        [](const void* object, std::string_view name, View& found) {
          return find_member(object, [&](std::string_view each, const Token& value) {
            if (each == name) found = view_of(value);
            return each == name;
          });
        },
    .for_each =
        [](const void* object, const std::function<void(std::string_view, View)>& visit) {
          find_member(object, [&](std::string_view each, const Token& value) {
            visit(each, view_of(value));
            return false;
          });
        },
};

View view_of(const Token& token) {
  switch (token.kind()) {
    case Kind::null:
      return {};
    case Kind::boolean:
      return View::truth(token.text() == "true");
    case Kind::integer:
    case Kind::floating:
      return View::number(token.text());
    case Kind::string:
      return View::text(token.text());
    case Kind::array:
      return View::list(array, &token);
    case Kind::object:
      return View::object(any_object, &token);
  }
  return {};
}

}  // namespace

View view_of(const json::Node& node) { return view_of(node.token()); }

}  // namespace registry_docs::layouts
