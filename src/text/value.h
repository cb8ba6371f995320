// The spelling of values.
#ifndef TEXT_VALUE_H
#define TEXT_VALUE_H

#include <string>

#include "registry_docs/value.h"

namespace text {

// A value as a reader writes it: booleans as in JSON, the items of a list joined with ", ", a
// floating-point number in the shortest form that reads back the same and with a fraction or
// an exponent, null as "None".
std::string spelled(const registry_docs::Value& value);
void append_value(std::string& to, const registry_docs::Value& value);

}  // namespace text

#endif  // TEXT_VALUE_H
