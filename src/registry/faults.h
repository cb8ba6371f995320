// What could not be read of the schemas that a registry document or an answer holds.
#ifndef REGISTRY_FAULTS_H
#define REGISTRY_FAULTS_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "json_schema/fault.h"

namespace registry {

// Says of faults which tool they are in.
void name_tool(std::string_view tool, std::span<json_schema::Fault> faults);

// A line for each, each line once.
std::vector<std::string> warnings_of(std::span<const json_schema::Fault> faults);

}  // namespace registry

#endif  // REGISTRY_FAULTS_H
