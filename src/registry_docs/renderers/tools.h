// What several blocks show of the tools: their order, their counts and their cells.
#ifndef REGISTRY_DOCS_RENDERERS_TOOLS_H
#define REGISTRY_DOCS_RENDERERS_TOOLS_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/host.h"
#include "registry_docs/markdown.h"

namespace registry_docs::renderers {

// Stands in a table cell that has nothing to show.
inline constexpr std::string_view NONE = "--";

using Tools = std::vector<std::shared_ptr<const ToolSpec>>;

// The tools of each tier, in the order of the tiers and, within one, of the registry. A
// tool whose tier is none of the host's is left out.
std::vector<Tools> tier_tools(const Host& host);

// "8 core and 6 extended": every tier is named, one without tools too.
std::string tier_counts(const Host& host);

// Appends the tool's actions as code spans, or the placeholder as it is.
void append_actions(std::string& to, const ToolSpec& tool, std::string_view placeholder);

// Appends what cli_usage returns.
void append_cli_usage(std::string& to, const Host& host, const ToolSpec& tool);

}  // namespace registry_docs::renderers

#endif  // REGISTRY_DOCS_RENDERERS_TOOLS_H
