// What a server offers: its tools, prompts and resources, as it answered and as its
// maintainers arrange them. A plain value. Its views borrow from the JSON documents that it
// was read from, and its pointers lead into it, so that it stays where it was made.
#ifndef REGISTRY_DOCS_CATALOG_CATALOG_H
#define REGISTRY_DOCS_CATALOG_CATALOG_H

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"
#include "json_schema/field.h"

namespace registry_docs::catalog {

// What a tool says of itself, or what holds when it says nothing.
struct Hint {
  std::string_view name;  // "readOnlyHint"
  bool value;
  bool is_given = false;
};

struct Hints {
  Hint read_only{"readOnlyHint", false};
  Hint destructive{"destructiveHint", true};
  Hint idempotent{"idempotentHint", false};
  Hint open_world{"openWorldHint", true};
};

struct Tool {
  std::string_view name = {};
  std::string_view title = {};        // its own before the one in its annotations
  std::string_view description = {};  // whole
  std::string summary = {};           // one line; blank only without a description
  Hints hints = {};
  std::string anchor = {};  // of its heading, as GitHub makes it
  std::string_view group = {};
  std::vector<json_schema::Field> parameters = {};
  std::vector<json_schema::Field> output = {};
  std::vector<json_schema::Words> notes = {};  // what it says of several parameters together
  json::MaybeNode extra = {};                  // what the registry document adds
  json::MaybeNode raw = {};                    // as it was answered
};

struct Group {
  std::string_view name = {};
  std::string_view title = {};  // the name where it has none
  std::string anchor = {};
  std::vector<const Tool*> tools = {};
  json::MaybeNode extra = {};
};

struct Argument {
  std::string_view name = {};
  std::string_view title = {};
  std::string_view description = {};
  bool is_required = false;
  json::MaybeNode raw = {};
};

struct Prompt {
  std::string_view name = {};
  std::string_view title = {};
  std::string_view description = {};
  std::string summary = {};
  std::string anchor = {};
  std::vector<Argument> arguments = {};
  json::MaybeNode raw = {};
};

// A resource, or a template of resources.
struct Resource {
  std::string_view uri = {};  // of a template, with places to fill in
  std::string_view name = {};
  std::string_view title = {};
  std::string_view description = {};
  std::string summary = {};
  std::string_view mime_type = {};
  std::string_view size = {};  // in bytes, as it is spelled
  std::string anchor = {};
  json::MaybeNode raw = {};
};

struct Server {
  std::string_view name = {};
  std::string_view title = {};
  std::string_view version = {};
  std::string_view instructions = {};
  std::string_view website = {};
  std::string_view description = {};
};

// Whether any tool has something to show.
struct Any {
  bool summaries = false;
  bool effects = false;
  bool titles = false;
};

struct Catalog {
  Server server = {};
  std::vector<Tool> tools = {};
  std::vector<Group> groups = {};  // empty, or each tool is in one of them
  std::vector<Prompt> prompts = {};
  std::vector<Resource> resources = {};
  std::vector<Resource> templates = {};
  Any any = {};
  std::deque<std::string> texts = {};  // that the rest borrows and no document holds
};

}  // namespace registry_docs::catalog

#endif  // REGISTRY_DOCS_CATALOG_CATALOG_H
