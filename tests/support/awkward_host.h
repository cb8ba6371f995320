// A host filled in by hand, whose every declaration is as awkward as it may be.
#ifndef SUPPORT_AWKWARD_HOST_H
#define SUPPORT_AWKWARD_HOST_H

#include <filesystem>

#include "registry_docs/host.h"

namespace registry_docs::support {

Host awkward_host();

// The same host before it had any tool.
Host empty_host();

// Writes the host's files under `root`, their blocks empty and in the opposite order.
void lay_out(const registry_docs::Host& host, const std::filesystem::path& root);

}  // namespace registry_docs::support

#endif  // SUPPORT_AWKWARD_HOST_H
