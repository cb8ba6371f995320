#include "tesmo_sorvet/workers/api_endpoints.h"

namespace tesmo_sorvet {

Frameworks endpoint_frameworks(const json::Node& registry) {
  Frameworks frameworks;
  const auto declared = registry.find("endpoint_frameworks");
  if (!declared) return frameworks;
  declared->for_each_member([&](std::string_view key, const json::Node& name) {
    frameworks.emplace_back(key, name.string());
  });
  return frameworks;
}

}  // namespace tesmo_sorvet
