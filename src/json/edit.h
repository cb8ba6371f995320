// Changes to members of a JSON text that leave every other byte of it as it is.
#ifndef JSON_EDIT_H
#define JSON_EDIT_H

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "json/node.h"

namespace json {

// What is to stand at a JSON pointer ("/tools"), which does not lead to the whole document.
struct Member {
  std::string pointer;
  Node value;  // of a document that keeps every value
};

// What is to stand in place of a part of a text.
struct Edit {
  std::size_t begin;
  std::size_t end;
  std::string text = {};
  bool is_current = false;  // it stands there
};

// An edit for each member, in their order; those with the same `begin` are applied in that
// order, too. A member that is there and the same, however it is laid out, is current. Another
// value is laid out as the file is: in lines with its indentation and line ends where the
// member begins a line, else on one line. A member that is not there joins its object as the
// last one. No member may lie within another, and none be there twice.
//
// `document` keeps every value. Throws InputError, "NAME: POINTER: expected ..., found ...",
// for a pointer to what is in no object.
std::vector<Edit> edits(const Document& document, std::span<const Member> members);

// The text with all of the edits. `edits` are in any order, as above.
std::string edited(std::string_view text, std::vector<Edit> edits);

}  // namespace json

#endif  // JSON_EDIT_H
