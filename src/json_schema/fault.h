// What cannot be read of a schema.
#ifndef JSON_SCHEMA_FAULT_H
#define JSON_SCHEMA_FAULT_H

#include <string>

#include "json/node.h"

namespace json_schema {

// For `json::Node::refuse`, or for a warning: what could not be read is taken for "any".
struct Fault {
  json::Node at;
  std::string expected;
  std::string found;
};

}  // namespace json_schema

#endif  // JSON_SCHEMA_FAULT_H
