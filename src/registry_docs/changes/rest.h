// What an entry of a server's lists says that a catalog does not hold.
#ifndef REGISTRY_DOCS_CHANGES_REST_H
#define REGISTRY_DOCS_CHANGES_REST_H

#include <string>

#include "json/node.h"

namespace registry_docs::changes {

// Each a text that is the same where the same is said, in whatever order the members stand.

// A whole value; of a tool, without the hints that say what holds without them.
std::string text_of(const json::Node& value);
std::string text_of_tool(const json::Node& entry);

// The members that neither the catalog's records nor a schema's fields are made of.
std::string rest_of_tool(const json::Node& entry);
std::string rest_of_schema(const json::Node& schema);
std::string rest_of_prompt(const json::Node& entry);  // nor of its arguments
std::string rest_of_argument(const json::Node& entry);
std::string rest_of_resource(const json::Node& entry);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_REST_H
