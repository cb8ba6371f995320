#include "json/node.h"

#include <stdexcept>

#include "registry_docs/errors.h"

namespace json {

const char* kind_name(Kind kind) {
  switch (kind) {
    case Kind::null:
      return "null";
    case Kind::boolean:
      return "a boolean";
    case Kind::integer:
    case Kind::floating:
      return "a number";
    case Kind::string:
      return "a string";
    case Kind::array:
      return "an array";
    case Kind::object:
      return "an object";
  }
  return "";
}

namespace {

std::string message(const Document& document, const std::string& place,
                    const std::string& expected, const std::string& found) {
  return document.name() + ": " + (place.empty() ? "the document" : place) + ": expected " +
         expected + ", found " + found;
}

}  // namespace

std::string Node::refusal(const std::string& expected, const std::string& found) const {
  return message(*document_, document_->place_of(*token_), expected, found);
}

void Node::refuse(const std::string& expected, const std::string& found) const {
  throw registry_docs::InputError(refusal(expected, found));
}

void Node::require(Kind kind) const {
  if (token_->kind() != kind) refuse(kind_name(kind), kind_name(token_->kind()));
}

void Node::require_list(Kind kind) const {
  require(kind);
  if (!token_->is_list()) throw std::logic_error("only the bytes of this value are kept");
}

std::string_view Node::string() const {
  require(Kind::string);
  return token_->text();
}

bool Node::boolean() const {
  require(Kind::boolean);
  return token_->text() == "true";
}

std::vector<registry_docs::Text> Node::strings() const {
  std::vector<registry_docs::Text> found;
  found.reserve(size());
  for_each_element([&](const Node& element) {
    found.push_back(registry_docs::Text::borrowed(element.string()));
  });
  return found;
}

std::size_t Node::size() const {
  require_list(Kind::array);
  return token_->elements();
}

std::optional<Node> Node::find(std::string_view name) const {
  require_list(Kind::object);
  std::optional<Node> found;
  for (const Token* at = token_ + 1; at != end(); at += 1 + (at + 1)->span()) {
    if (at->text() == name) found = Node(*document_, *(at + 1));
  }
  return found;
}

Node Node::at(std::string_view name) const {
  if (const auto found = find(name)) return *found;
  refuse_lack(name);
}

void Node::refuse_lack(std::string_view name, const std::string& found) const {
  const std::string object = document_->place_of(*token_);
  throw registry_docs::InputError(
      message(*document_, object + (object.empty() ? "" : ".") + std::string(name),
              "this member to be given", found));
}

registry_docs::Value Node::bound() const {
  if (kind() != Kind::null && kind() != Kind::integer && kind() != Kind::floating) {
    refuse("a number or null", kind_name(kind()));
  }
  return value();
}

}  // namespace json
