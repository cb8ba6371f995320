// The web frameworks whose API endpoints the host recognises.
#ifndef TESMO_SORVET_WORKERS_API_ENDPOINTS_H
#define TESMO_SORVET_WORKERS_API_ENDPOINTS_H

#include <string>
#include <utility>
#include <vector>

#include "json/node.h"

namespace tesmo_sorvet {

// Key and name of each framework, in the order of the registry file.
using Frameworks = std::vector<std::pair<std::string, std::string>>;
Frameworks endpoint_frameworks(const json::Node& registry);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_WORKERS_API_ENDPOINTS_H
