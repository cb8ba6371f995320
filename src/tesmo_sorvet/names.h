// The strings that several kinds of declaration have.
#ifndef TESMO_SORVET_NAMES_H
#define TESMO_SORVET_NAMES_H

#include <optional>
#include <string_view>

#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

// The member "name" of `declared`, which must be given and not empty.
inline std::string_view name_of(const Node& declared, const std::optional<Node>& name) {
  if (!name) declared.refuse_lack("name");
  if (name->string().empty()) name->refuse("a name", "an empty string");
  return name->string();
}

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_NAMES_H
