#include "tesmo_sorvet/additions.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include "tesmo_sorvet/excerpt.h"
#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

using registry_docs::ParamSpec;
using registry_docs::ToolSpec;

using Params = std::unordered_map<std::string_view, ParamSpec*>;

void add_to_param(const Node& declared, const Params& params) {
  constexpr std::array<std::string_view, 3> names = {"name", "applies_to", "action_defaults"};
  const auto [name, applies_to, action_defaults] = declared.find_each(names);
  const std::string_view wanted = name_of(declared, name);
  const auto found = params.find(wanted);
  if (found == params.end()) {
    name->refuse("a parameter that the server offers", in_quotes(wanted));
  }
  ParamSpec& param = *found->second;
  if (applies_to) param.applies_to = applies_to->strings();
  if (!action_defaults) return;
  param.action_defaults.clear();
  action_defaults->for_each_member([&param](std::string_view action, const Node& value) {
    param.action_defaults.emplace_back(action, value.value());
  });
}

void add_to_tool(const Node& declared, const std::vector<std::string>& tiers, ToolSpec& tool) {
  constexpr std::array<std::string_view, 4> names = {"tier", "summary", "actions", "params"};
  const auto [tier, summary, actions, params] = declared.find_each(names);
  if (tier) {
    const auto known = std::ranges::find(tiers, tier->string());
    if (known == tiers.end()) tier->refuse("one of the tiers", in_quotes(tier->string()));
    tool.tier = *known;
  }
  if (summary) tool.summary = summary->string();
  if (actions) tool.actions = tool.action_names = actions->strings();
  if (!params) return;
  Params by_name;
  for (ParamSpec& param : tool.all_params) by_name.emplace(param.name, &param);
  params->for_each_element([&by_name](const Node& param) { add_to_param(param, by_name); });
}

}  // namespace

void add_declared(const Node& registry, const std::vector<std::string>& tiers, Tools& tools) {
  const auto declared = registry.find("tools");
  if (!declared) return;
  std::unordered_set<std::string_view> seen;
  refuse_markers(*declared);
  declared->for_each_element([&](const Node& tool) {
    const std::string_view name = name_of(tool, tool.find("name"));
    const auto place = tools.places.find(name);
    if (place == tools.places.end()) {
      tool.at("name").refuse("a tool that the server offers", in_quotes(name));
    }
    if (!seen.insert(name).second) {
      tool.at("name").refuse("a name that no other tool has", in_quotes(name) + " again");
    }
    add_to_tool(tool, tiers, tools.in_order[place->second].spec);
  });
}

}  // namespace tesmo_sorvet
