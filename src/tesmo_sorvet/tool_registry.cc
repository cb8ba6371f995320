#include "tesmo_sorvet/tool_registry.h"

#include <array>
#include <optional>
#include <unordered_set>
#include <utility>

#include "registry_docs/text.h"
#include "tesmo_sorvet/excerpt.h"
#include "tesmo_sorvet/names.h"
#include "tesmo_sorvet/tool_schemas.h"

namespace tesmo_sorvet {
namespace {

using NameSet = std::unordered_set<std::string_view>;

std::string_view first_line(std::string_view text) {
  return registry_docs::strip(text.substr(0, text.find('\n')));
}

// The tier of that name. All tools of a tier share its one text, which stays in the caches:
// 0.9 of the time of a check of 100,000 tools.
std::string_view known_tier(const Node& declared, const NameSet& tiers) {
  const auto found = tiers.find(declared.string());
  if (found == tiers.end()) declared.refuse("one of the tiers", in_quotes(declared.string()));
  return *found;
}

void read_tool(const Node& declared, const std::vector<std::string>& tiers,
               const NameSet& known_tiers, Tool& tool) {
  constexpr std::array<std::string_view, 7> names = {
      "name", "tier", "summary", "description", "actions", "params", "inputSchema"};
  const auto [name, tier, summary, description, actions, params, input_schema] =
      declared.find_each(names);
  tool.spec.name = name_of(declared, name);
  tool.spec.tier = tier ? known_tier(*tier, known_tiers) : tiers.front();
  if (description) tool.spec.mcp_text = description->string();
  tool.spec.summary = summary ? summary->string() : first_line(tool.spec.mcp_text);
  if (actions) tool.spec.action_names = actions->strings();
  tool.spec.actions = tool.spec.action_names;
  Inputs inputs = inputs_of(params, input_schema);
  tool.spec.all_params = std::move(inputs.params);
  tool.schema = std::move(inputs.schema);
}

}  // namespace

std::vector<std::string> tiers(const Node& registry) {
  const auto declared = registry.find("tiers");
  if (!declared) return {"core"};
  std::vector<std::string> names;
  NameSet known;
  declared->for_each_element([&](const Node& element) {
    if (!known.insert(element.string()).second) {
      element.refuse("distinct tiers", in_quotes(element.string()) + " again");
    }
    names.emplace_back(element.string());
  });
  if (names.empty()) declared->refuse("at least one tier", "none");
  return names;
}

Tools tools(const Node& registry, const std::vector<std::string>& tiers) {
  const NameSet known_tiers(tiers.begin(), tiers.end());
  const Node declared = registry.at("tools");
  Tools found;
  const std::size_t count = declared.size();
  found.in_order.reserve(count);
  found.places.reserve(count);
  declared.for_each_element([&](const Node& element) {
    Tool& tool = found.in_order.emplace_back();
    read_tool(element, tiers, known_tiers, tool);
    if (!found.places.try_emplace(tool.spec.name, found.places.size()).second) {
      element.at("name").refuse("a name that no other tool has",
                                in_quotes(tool.spec.name) + " again");
    }
  });
  return found;
}

}  // namespace tesmo_sorvet
