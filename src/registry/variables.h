// Variables in the texts that start a server: "${NAME}" and "${NAME:-DEFAULT}", as in the
// configuration files of MCP clients.
#ifndef REGISTRY_VARIABLES_H
#define REGISTRY_VARIABLES_H

#include <span>
#include <string>
#include <vector>

#include "json/node.h"

namespace registry {

// The value of a variable, which is shown nowhere.
struct Secret {
  std::string variable;
  std::string value;
};

enum class Variables {
  kept,     // as they are spelled
  replaced  // by what this program finds in its environment
};

// The text of a string with its variables kept or replaced; the values of those that are
// replaced join the secrets. Refuses a variable that is not set and has no default.
std::string text_of(const json::Node& declared, Variables variables,
                    std::vector<Secret>& secrets);

// The text with "${NAME}" wherever the value of a variable stands in it. A value of one or two
// characters is left: it is in every text.
std::string without(std::span<const Secret> secrets, std::string text);

}  // namespace registry

#endif  // REGISTRY_VARIABLES_H
