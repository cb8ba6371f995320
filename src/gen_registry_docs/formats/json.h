// The outcome of a check as JSON; docs/output.md describes it for those who read it.
#ifndef GEN_REGISTRY_DOCS_FORMATS_JSON_H
#define GEN_REGISTRY_DOCS_FORMATS_JSON_H

#include <span>
#include <string>

#include "registry/host.h"
#include "registry_docs/report.h"

namespace gen_registry_docs::formats {

// One object with a line feed at its end. `diffs` holds the diff of each file, empty for those
// that are not stale; none at all leaves them out. So do no changes, and an empty error.
std::string json_report(std::span<const registry_docs::FileReport> files,
                        std::span<const std::string> diffs,
                        std::span<const registry::ServerChange> changes,
                        const std::string& error);

// The object of a check that could not do its work.
std::string json_failure(const std::string& message);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_JSON_H
