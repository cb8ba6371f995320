// JSON pointers.
#ifndef JSON_POINTER_H
#define JSON_POINTER_H

#include <string>
#include <string_view>

#include "json/node.h"

namespace json {

// Where a JSON pointer ("/tools/0/name") leads from a node, if it leads anywhere.
MaybeNode pointed_at(Node node, std::string_view pointer);

// The last name in a JSON pointer; empty for the whole document.
std::string last_name(std::string_view pointer);

// The text of a URI's fragment, in which a pointer may stand.
std::string without_percent_escapes(std::string_view text);

}  // namespace json

#endif  // JSON_POINTER_H
