// A host filled in by hand, whose every declaration is as awkward as it may be.
#ifndef SUPPORT_AWKWARD_HOST_H
#define SUPPORT_AWKWARD_HOST_H

#include <filesystem>

#include "registry_docs/host.h"

namespace support {

registry_docs::Host awkward_host();

// The same host before it had any tool.
registry_docs::Host empty_host();

// Writes the host's files under `root`, hand-written text around blocks that stand in the
// opposite of their declared order and are empty.
void lay_out(const registry_docs::Host& host, const std::filesystem::path& root);

}  // namespace support

#endif  // SUPPORT_AWKWARD_HOST_H
