// What is said of one part of a value, but for what is within it.
#ifndef REGISTRY_DOCS_CHANGES_FACTS_H
#define REGISTRY_DOCS_CHANGES_FACTS_H

#include <cstdint>

#include "registry_docs/changes/change.h"
#include "registry_docs/changes/part.h"

namespace registry_docs::changes {

// Whether the parts within tell whether there may be others.
enum class Closing : std::uint8_t { by_itself, by_parts };

void tell_facts(const Part& before, const Part& after, Side side, Closing closing,
                Teller& teller);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_FACTS_H
