#include "registry/faults.h"

#include <unordered_set>

#include "registry_docs/text.h"

namespace registry {

void name_tool(std::string_view tool, std::span<json_schema::Fault> faults) {
  for (json_schema::Fault& fault : faults) {
    fault.found += " in the tool " + registry_docs::in_quotes(tool);
  }
}

std::vector<std::string> warnings_of(std::span<const json_schema::Fault> faults) {
  std::vector<std::string> lines;
  std::unordered_set<std::string> seen;
  for (const json_schema::Fault& fault : faults) {
    std::string line = fault.at.refusal(fault.expected, fault.found);
    if (seen.insert(line).second) lines.push_back(std::move(line));
  }
  return lines;
}

}  // namespace registry
