// What a change of the keywords that limit values does.
#ifndef REGISTRY_DOCS_CHANGES_LIMITS_H
#define REGISTRY_DOCS_CHANGES_LIMITS_H

#include <string_view>

#include "json_schema/limits.h"
#include "registry_docs/changes/change.h"

namespace registry_docs::changes {

// Of one keyword; null where it is not there.
Effect effect_of_limit(const json_schema::Limit* before, const json_schema::Limit* after);

// Whether it lets nothing be in an object or an array but what is named.
bool is_closing(const json_schema::Limit& limit);

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_LIMITS_H
