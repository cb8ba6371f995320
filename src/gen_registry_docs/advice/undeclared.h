// What goes stale in a repository, and is not declared.
#ifndef GEN_REGISTRY_DOCS_ADVICE_UNDECLARED_H
#define GEN_REGISTRY_DOCS_ADVICE_UNDECLARED_H

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "registry/host.h"
#include "registry_docs/report.h"

namespace gen_registry_docs::advice {

// A line for each thing that is seen and could be declared, with the member of the registry
// that would hold it true: a wrong number before "tools" (see wrong_count.h), or names of
// tools behind mcp__SERVER__, where no claim finds any; and the tools of a manifest.json. None
// of these is a problem. Looks into the files of the reports and into some that tell of
// servers by their names, of which those that cannot be read are passed over. Looks only where
// there is one server, of which layouts, members or claims show something.
std::vector<std::string> undeclared(std::span<const registry_docs::FileReport> files,
                                    const registry::Bound& bound,
                                    const std::filesystem::path& root);

}  // namespace gen_registry_docs::advice

#endif  // GEN_REGISTRY_DOCS_ADVICE_UNDECLARED_H
