// The tools and their tiers, as the registry file declares them.
#ifndef TESMO_SORVET_TOOL_REGISTRY_H
#define TESMO_SORVET_TOOL_REGISTRY_H

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "registry_docs/host.h"
#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

struct Tool {
  registry_docs::ToolSpec spec;
  registry_docs::InputSchema schema = {};
};

struct Tools {
  std::vector<Tool> in_order;
  std::unordered_map<std::string_view, std::size_t> places;  // in that order, by name
  std::deque<std::string> texts;  // that the tools borrow and no document holds
};

// Who wrote a document: the first host's maintainers, those of any other server, or a server
// that was asked for its tools. Input schemas are JSON Schema but for the first.
enum class Origin { first_host, registry, server };

// The tier names in order, ["core"] when the registry names none.
std::vector<std::string> tiers(const Node& registry);

// Refuses a text within `declared` that holds a block's marker: the block that shows it would
// end there for the next write, which would add to its file.
void refuse_markers(const Node& declared);

// The tools in registry order. Refuses a name given twice and a tier that is none of
// `tiers`. Of a server's tools only name, description and input schema are read, which each
// must have but for the description; all are of the first tier. Borrows from the document and
// from `tiers`.
Tools tools(const Node& registry, const std::vector<std::string>& tiers,
            Origin origin = Origin::first_host);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_REGISTRY_H
