// The members that an object of the registry document may have.
#ifndef REGISTRY_MEMBERS_H
#define REGISTRY_MEMBERS_H

#include <span>
#include <string_view>

#include "json/node.h"

namespace registry {

// Refuses a member of another name, and says which was probably meant.
void require_known_members(const json::Node& object, std::span<const std::string_view> names);

}  // namespace registry

#endif  // REGISTRY_MEMBERS_H
