#include "registry/tools.h"

#include <array>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "registry/faults.h"
#include "registry/inputs.h"
#include "registry_docs/markers.h"
#include "registry_docs/text.h"

namespace registry {
namespace {

using json::Kind;
using json::Node;
using json_schema::Fault;
using registry_docs::in_quotes;
using registry_docs::ParamSpec;
using registry_docs::Text;
using registry_docs::ToolSpec;
using tesmo_sorvet::name_of;
using tesmo_sorvet::Tiers;
using tesmo_sorvet::Tool;
using tesmo_sorvet::ToolMembers;
using tesmo_sorvet::Tools;

// Refuses a text within `declared` that holds a block's marker: the block that shows it would
// end there for the next write, which would add to its file.
void refuse_markers(const Node& declared) {
  const auto refuse_marker = [&declared](std::string_view text) {
    if (registry_docs::find_marker(text, 0)) {
      declared.refuse("a text without a block's marker", in_quotes(text));
    }
  };
  if (declared.kind() == Kind::string) {
    refuse_marker(declared.string());
  } else if (declared.kind() == Kind::array) {
    declared.for_each_element(refuse_markers);
  } else if (declared.kind() == Kind::object) {
    declared.for_each_member([&](std::string_view name, const Node& member) {
      refuse_marker(name);
      refuse_markers(member);
    });
  }
}

// All of a tool but its name.
void read_tool(const Node& declared, const ToolMembers& members, const Tiers& tiers,
               std::deque<std::string>& texts, std::vector<Fault>& faults, Tool& tool) {
  refuse_markers(declared);
  read_spec(members, tiers, tool.spec);
  const std::size_t known = faults.size();
  const auto read = [&](const Node& schema) {
    return described_inputs(schema, texts, faults);
  };
  take_inputs(members, tesmo_sorvet::inputs_of(members.params, members.input_schema, read),
              tool);
  name_tool(tool.spec.name, std::span(faults).subspan(known));
}

// A server that answers no text as a description has none.
void leave_out_no_text(json::MaybeNode& member) {
  if (member && member->kind() != Kind::string) member.reset();
}

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
    param.action_defaults.emplace_back(Text::borrowed(action), value.value());
  });
}

void add_to_tool(const Node& declared, const Tiers& tiers, ToolSpec& tool) {
  constexpr std::array<std::string_view, 4> names = {"tier", "summary", "actions", "params"};
  const auto [tier, summary, actions, params] = declared.find_each(names);
  if (tier) tool.tier = Text::borrowed(tiers.known(*tier));
  if (summary) tool.summary = Text::borrowed(summary->string());
  if (actions) tool.actions = tool.action_names = actions->strings();
  if (!params) return;
  Params by_name;
  for (ParamSpec& param : tool.all_params) by_name.emplace(param.name, &param);
  params->for_each_element([&by_name](const Node& param) { add_to_param(param, by_name); });
}

}  // namespace

Tools declared_tools(const Node& registry, const Tiers& tiers, std::vector<Fault>& faults) {
  return tesmo_sorvet::read_tools(
      registry, [&](const Node& declared, std::deque<std::string>& texts, Tool& tool) {
        const ToolMembers members(declared);
        tool.spec.name = Text::borrowed(name_of(declared, members.name));
        read_tool(declared, members, tiers, texts, faults, tool);
      });
}

Tools answered_tools(const Node& answer, const Tiers& tiers, std::vector<Fault>& faults) {
  return tesmo_sorvet::read_tools(
      answer, [&](const Node& declared, std::deque<std::string>& texts, Tool& tool) {
        ToolMembers members(declared);
        tool.spec.name = Text::borrowed(name_of(declared, members.name));
        members.tier = members.summary = members.actions = members.params = std::nullopt;
        leave_out_no_text(members.description);
        read_tool(declared, members, tiers, texts, faults, tool);
      });
}

void add_declared(const Node& registry, const Tiers& tiers, Tools& tools) {
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

}  // namespace registry
