// A value of a document, read for what it must be.
#ifndef JSON_NODE_H
#define JSON_NODE_H

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/document.h"
#include "registry_docs/value.h"

namespace json {

// Every refusal is an InputError that names the value's place, what was expected there
// and what was found. Borrows from the document.
class Node {
 public:
  explicit Node(const Document& document) : Node(document, document.root()) {}

  [[nodiscard]] Kind kind() const { return token_->kind(); }
  [[nodiscard]] const Token& token() const { return *token_; }

  // Refuses a value of another kind.
  [[nodiscard]] std::string_view string() const;
  [[nodiscard]] bool boolean() const;
  [[nodiscard]] std::vector<std::string_view> strings() const;
  [[nodiscard]] std::size_t size() const;  // the number of an array's elements

  // Calls `visit` with each element of an array, or with the name and the value of each
  // member of an object, in order. Refuses a value of another kind.
  template <typename Visit>
  void for_each_element(Visit visit) const {
    require(Kind::array);
    for (const Token* at = token_ + 1; at != end(); at += at->span()) {
      visit(Node(*document_, *at));
    }
  }
  template <typename Visit>
  void for_each_member(Visit visit) const {
    require(Kind::object);
    for (const Token* name = token_ + 1; name != end(); name += 1 + (name + 1)->span()) {
      visit(name->text(), Node(*document_, *(name + 1)));
    }
  }

  // The member of that name of an object, and of one that must have it.
  [[nodiscard]] std::optional<Node> find(std::string_view name) const;
  [[nodiscard]] Node at(std::string_view name) const;

  // The members of these names, each as `find` returns it, found in one pass.
  template <std::size_t Count>
  [[nodiscard]] std::array<std::optional<Node>, Count> find_each(
      const std::array<std::string_view, Count>& names) const {
    std::array<std::optional<Node>, Count> found{};
    for_each_member([&](std::string_view name, const Node& member) {
      const auto place = std::ranges::find(names, name) - names.begin();
      if (place < std::ssize(names)) found[static_cast<std::size_t>(place)] = member;
    });
    return found;
  }

  // Any value; an object is kept as its compact JSON text.
  [[nodiscard]] registry_docs::Value value() const;
  // A number or null.
  [[nodiscard]] registry_docs::Value bound() const;

  // Refuses an object for having no member of that name.
  [[noreturn]] void refuse_lack(std::string_view name,
                                const std::string& found = "nothing") const;

  // "expected EXPECTED, found FOUND", at this value's place.
  [[noreturn]] void refuse(const std::string& expected, const std::string& found) const;

 private:
  Node(const Document& document, const Token& token) : document_(&document), token_(&token) {}

  void require(Kind kind) const;
  [[nodiscard]] const Token* end() const { return token_ + token_->span(); }
  void append_json(std::string& json) const;

  const Document* document_;
  const Token* token_;
};

using MaybeNode = std::optional<Node>;

}  // namespace json

#endif  // JSON_NODE_H
