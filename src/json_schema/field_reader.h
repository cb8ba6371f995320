// Reads schemas for all that they say.
#ifndef JSON_SCHEMA_FIELD_READER_H
#define JSON_SCHEMA_FIELD_READER_H

#include <vector>

#include "json/node.h"
#include "json_schema/fault.h"
#include "json_schema/field.h"

namespace json_schema {

// A whole schema, whose parameters are the fields of the result, and which itself has no path.
// Of an answer that is no object the result is the one field to show. An input without a type
// is an object; one of another type is a fault.
//
// Where a schema leads back to one that it stands in, its type is the name of the reference,
// and it has no fields. So it is beyond 256 fields within one another and 10,000 in all.
//
// Nothing in a schema stops the reading: what cannot be read becomes "any", and a fault.
Field read_input(const json::Node& schema, std::vector<Fault>& faults);
Field read_output(const json::Node& schema, std::vector<Fault>& faults);

}  // namespace json_schema

#endif  // JSON_SCHEMA_FIELD_READER_H
