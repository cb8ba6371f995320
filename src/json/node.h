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
#include "registry_docs/text_value.h"
#include "registry_docs/value.h"

namespace json {

// As messages call it: "an array".
const char* kind_name(Kind kind);

// Every refusal is an InputError that names the value's place, what was expected there
// and what was found. To look into an array or an object of which the rules of the document
// keep the bytes alone is a std::logic_error. Borrows from the document.
class Node {
 public:
  explicit Node(const Document& document) : Node(document, document.root()) {}

  [[nodiscard]] Kind kind() const { return token_->kind(); }
  [[nodiscard]] const Token& token() const { return *token_; }

  // Another value of the same document.
  [[nodiscard]] Node other(const Token& token) const { return {*document_, token}; }

  // Tells it from every other value.
  [[nodiscard]] const void* address() const { return token_; }

  // Refuses a value of another kind.
  [[nodiscard]] std::string_view string() const;
  [[nodiscard]] bool boolean() const;
  [[nodiscard]] std::vector<registry_docs::Text> strings() const;  // borrowed
  [[nodiscard]] std::size_t size() const;  // the number of an array's elements

  // Calls `visit` with each element of an array, or with the name and the value of each
  // member of an object, in order. Refuses a value of another kind.
  template <typename Visit>
  void for_each_element(Visit visit) const {
    require_list(Kind::array);
    for (const Token* at = token_ + 1; at != end(); at += at->span()) {
      visit(Node(*document_, *at));
    }
  }
  template <typename Visit>
  void for_each_member(Visit visit) const {
    require_list(Kind::object);
    for (const Token* name = token_ + 1; name != end(); name += 1 + (name + 1)->span()) {
      visit(name->text(), Node(*document_, *(name + 1)));
    }
  }

  // The bytes of the value, as they stand in the document: of all but an array or an object
  // that can be looked into. Borrows from the document.
  [[nodiscard]] std::string_view spelling() const { return document_->spelling_of(*token_); }

  // The member of that name of an object, the last one where the rules allow several, and of
  // an object that must have it.
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
  // Any value as compact JSON, its numbers as messages and lists spell them.
  [[nodiscard]] std::string json() const;
  // A number or null.
  [[nodiscard]] registry_docs::Value bound() const;

  // Refuses an object for having no member of that name.
  [[noreturn]] void refuse_lack(std::string_view name,
                                const std::string& found = "nothing") const;

  // "NAME: PLACE: expected EXPECTED, found FOUND" of this value, and its refusal with that.
  [[nodiscard]] std::string refusal(const std::string& expected,
                                    const std::string& found) const;
  [[noreturn]] void refuse(const std::string& expected, const std::string& found) const;

 private:
  Node(const Document& document, const Token& token) : document_(&document), token_(&token) {}

  void require(Kind kind) const;
  void require_list(Kind kind) const;
  [[nodiscard]] const Token* end() const { return token_ + token_->span(); }
  void append_json(std::string& json) const;

  const Document* document_;
  const Token* token_;
};

using MaybeNode = std::optional<Node>;

}  // namespace json

#endif  // JSON_NODE_H
