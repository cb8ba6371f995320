// The members that an object of the registry document may have.
#ifndef REGISTRY_MEMBERS_H
#define REGISTRY_MEMBERS_H

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"

namespace registry {

// Refuses a member of another name, and says which was probably meant.
void require_known_members(const json::Node& object, std::span<const std::string_view> names);

// The member "server": the name of one of the servers, if it is given. Where there are not
// several, so that `servers` is empty, it may not be.
std::optional<std::string> server_among(const json::Node& declared,
                                        const std::vector<std::string>& servers);

}  // namespace registry

#endif  // REGISTRY_MEMBERS_H
