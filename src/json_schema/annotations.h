// What a schema says of a value in words and by examples.
#ifndef JSON_SCHEMA_ANNOTATIONS_H
#define JSON_SCHEMA_ANNOTATIONS_H

#include "json_schema/field.h"
#include "json_schema/parts.h"
#include "json_schema/walk.h"

namespace json_schema {

// Adds to a field what one of the schemas that hold of it says of it itself. What was said
// before is kept; other words for it join the remarks.
void annotate(Field& field, const Parts& parts, Walk& walk);

// Adds the values that are not among them, told apart by kind and spelling.
void unite(std::vector<json::Node>& values, const std::vector<json::Node>& more);

// Adds a remark, if it says anything.
void add_remark(Field& field, const Remark& remark);

}  // namespace json_schema

#endif  // JSON_SCHEMA_ANNOTATIONS_H
