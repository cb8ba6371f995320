#include "registry/claims.h"

#include <array>
#include <string_view>

#include "registry/files.h"
#include "registry/members.h"
#include "text/wildcard.h"

namespace registry {
namespace {

Claim claim_of(const json::Node& declared, const std::vector<std::string>& servers,
               const std::filesystem::path& root) {
  constexpr std::array<std::string_view, 4> names = {"path", "text", "allow", "server"};
  require_known_members(declared, names);
  Claim claim{.declared = declared,
              .path = path_in_repository(declared.at("path")),
              .text = claim_text(declared.at("text"))};
  if (!text::has_wildcard(claim.path)) real_path(declared.at("path"), root);
  if (const auto allowed = declared.find("allow")) {
    allowed->for_each_element(
        [&](const json::Node& each) { claim.allowed.emplace_back(each.string()); });
  }
  claim.server = server_among(declared, servers).value_or("");
  return claim;
}

}  // namespace

std::vector<Claim> claims(const json::Node& registry, const std::vector<std::string>& servers,
                          const std::filesystem::path& root) {
  std::vector<Claim> found;
  const json::MaybeNode declared = registry.find("claims");
  if (!declared) return found;
  declared->for_each_element(
      [&](const json::Node& each) { found.push_back(claim_of(each, servers, root)); });
  if (found.empty()) declared->refuse("at least one claim", "none");
  return found;
}

}  // namespace registry
