// The entries of a server's lists, read one by one.
#ifndef REGISTRY_DOCS_CATALOG_ENTRIES_H
#define REGISTRY_DOCS_CATALOG_ENTRIES_H

#include <string_view>
#include <vector>

#include "json/node.h"
#include "registry_docs/catalog/catalog.h"

namespace registry_docs::catalog {

// All of them borrow from the document. A member of a wrong kind is passed over, but for
// names, URIs and what the lists need, which Node refuses.

// What an answer to `initialize` or a registry says of the server: the members serverInfo and
// instructions of `answer`.
Server server_of(const json::Node& answer);

// A tool without its parameters and its output.
Tool tool_of(const json::Node& entry);

// Whether a member of a tool's annotations is a hint that says what holds without it.
bool is_default_hint(std::string_view name, const json::Node& value);

// The members "prompts", "resources" and "resourceTemplates" of an answer, if it has them.
std::vector<Prompt> prompts_of(const json::Node& answer);
std::vector<Resource> resources_of(const json::Node& answer);
std::vector<Resource> templates_of(const json::Node& answer);

// The one word that a reader looks for before calling a tool: "read-only", "destructive", or
// none.
std::string_view effect_of(const Tool& tool);

// Notes what any of the tools has to show.
void note_any(Catalog& catalog);

// Gives the headings of a catalog their anchors, in the order in which a reference shows them:
// group by group with their tools, then prompts, resources and templates.
void add_anchors(Catalog& catalog);

}  // namespace registry_docs::catalog

#endif  // REGISTRY_DOCS_CATALOG_ENTRIES_H
