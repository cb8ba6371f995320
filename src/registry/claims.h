// The claims of a registry document: what files say of a server in their own words.
#ifndef REGISTRY_CLAIMS_H
#define REGISTRY_CLAIMS_H

#include <filesystem>
#include <string>
#include <vector>

#include "json/node.h"
#include "registry/claim_text.h"

namespace registry {

struct Claim {
  json::Node declared;
  std::string path;  // within the repository; a pattern of paths if "*" is in it
  ClaimText text;
  std::vector<std::string> allowed = {};  // texts that name nothing, and yet are not wrong
  std::string server = {};                // the name of one among several; empty: all
};

// From the registry's member "claims"; none without one. Refuses a path that leads out of
// `root`.
std::vector<Claim> claims(const json::Node& registry, const std::vector<std::string>& servers,
                          const std::filesystem::path& root);

}  // namespace registry

#endif  // REGISTRY_CLAIMS_H
