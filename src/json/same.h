// Whether two values are the same.
#ifndef JSON_SAME_H
#define JSON_SAME_H

#include "json/node.h"

namespace json {

// However they are laid out: the members of an object may stand in any order, and a number or
// a string may be spelled in any way. Takes no more than the time to sort the members.
bool are_same(const Node& left, const Node& right);

}  // namespace json

#endif  // JSON_SAME_H
