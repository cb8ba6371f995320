// What is wrong with a generated file, if anything.
#ifndef REGISTRY_DOCS_REPOSITORY_PROBLEM_H
#define REGISTRY_DOCS_REPOSITORY_PROBLEM_H

#include <string>
#include <string_view>

#include "registry_docs/registry_docs.h"

namespace registry_docs::repository {

// The problem line of a file whose blocks differ: `rendered` is its text with new bodies.
std::string stale_line(const GeneratedFile& generated, std::string_view text,
                       std::string_view rendered);

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_PROBLEM_H
