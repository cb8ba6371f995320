// Where the values of a document stand in its text.
#ifndef JSON_PLACE_H
#define JSON_PLACE_H

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"

namespace json {

// A value and its bytes, which borrow from the document.
struct Place {
  Node node;
  std::string_view text = {};
};

// An element of an array, or a member of an object. All texts borrow from the document.
struct Child {
  std::string name;                // as a JSON pointer has it, its escapes taken out
  std::string_view before = {};    // the white space before it, behind a comma or a bracket
  std::string_view spelling = {};  // of a member's name, with its quotes; empty for an element
  std::string_view colon = {};     // between that and the value, with white space
  Place value;
};

// The whole of a document that keeps every value.
Place place_of(const Document& document);

// In order, in one pass over the text. None of what is neither an array nor an object.
std::vector<Child> children_of(const Place& list);

// Where a JSON pointer leads, if it leads anywhere. Reads the text once for each name in it.
std::optional<Place> pointed_at(Place place, std::string_view pointer);

}  // namespace json

#endif  // JSON_PLACE_H
