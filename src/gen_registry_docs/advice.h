// What a person can do about a problem.
#ifndef GEN_REGISTRY_DOCS_ADVICE_H
#define GEN_REGISTRY_DOCS_ADVICE_H

#include <string>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs {

// One line for each thing that has to be mended by hand before a write, each beginning with
// the file and, where there is one, the line; behind it the lines that are to be put in, if
// any. Nothing for a file that a write brings up to date.
std::vector<std::string> advice(const registry_docs::FileReport& file);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_ADVICE_H
