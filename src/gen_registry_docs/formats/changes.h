// What changed of servers, as text.
#ifndef GEN_REGISTRY_DOCS_FORMATS_CHANGES_H
#define GEN_REGISTRY_DOCS_FORMATS_CHANGES_H

#include <string>
#include <string_view>

#include "registry/host.h"

namespace gen_registry_docs::formats {

std::string_view verdict_name(registry_docs::changes::Verdict verdict);

// "tool search, parameter limit: is gone", behind the server's name where it has one.
std::string told(const registry::ServerChange& change);

// The same behind the snapshot's path and the verdict, without a line feed.
std::string line_of(const registry::ServerChange& change);

}  // namespace gen_registry_docs::formats

#endif  // GEN_REGISTRY_DOCS_FORMATS_CHANGES_H
