#include <utility>

#include "json/node.h"
#include "json/number.h"
#include "json/pretty.h"
#include "text/value.h"

namespace json {
namespace {

// The letter that stands for a character after a backslash, or NUL where there is none.
char short_escape(char c) {
  switch (c) {
    case '"':
    case '\\':
      return c;
    case '\b':
      return 'b';
    case '\f':
      return 'f';
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    case '\t':
      return 't';
    default:
      return '\0';
  }
}

}  // namespace

void append_string(std::string& json, std::string_view text) {
  constexpr std::string_view digits = "0123456789abcdef";
  json += '"';
  for (const char c : text) {
    if (const char letter = short_escape(c)) {
      json += {'\\', letter};
    } else if (static_cast<unsigned char>(c) < ' ') {
      json += "\\u00";
      json +=
          {digits[static_cast<std::size_t>(c >> 4)], digits[static_cast<std::size_t>(c & 15)]};
    } else {
      json += c;
    }
  }
  json += '"';
}

registry_docs::Value Node::value() const {
  switch (kind()) {
    case Kind::null:
      return nullptr;
    case Kind::boolean:
      return boolean();
    case Kind::integer:
      return *integer_value(token_->text());
    case Kind::floating:
      return *floating_value(token_->text());
    case Kind::string:
      return token_->text();
    case Kind::array: {
      registry_docs::Value::List items;
      for_each_element([&](const Node& element) { items.push_back(element.value()); });
      return items;
    }
    case Kind::object:
      break;
  }
  return json();
}

std::string Node::json() const {
  std::string json;
  append_json(json);
  return json;
}

void Node::append_json(std::string& json) const {
  std::string_view separator;
  if (kind() == Kind::string) {
    append_string(json, token_->text());
  } else if (kind() == Kind::array) {
    json += '[';
    for_each_element([&](const Node& element) {
      json += std::exchange(separator, ",");
      element.append_json(json);
    });
    json += ']';
  } else if (kind() == Kind::object) {
    json += '{';
    for_each_member([&](std::string_view name, const Node& member) {
      json += std::exchange(separator, ",");
      append_string(json, name);
      json += ':';
      member.append_json(json);
    });
    json += '}';
  } else {
    json += kind() == Kind::null ? "null" : text::spelled(value());
  }
}

}  // namespace json
