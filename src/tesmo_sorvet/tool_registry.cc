#include "tesmo_sorvet/tool_registry.h"

#include <array>
#include <utility>

#include "tesmo_sorvet/tool_schemas.h"

namespace tesmo_sorvet {
namespace {

using json::Node;
using registry_docs::in_quotes;
using registry_docs::Text;

std::string_view first_line(std::string_view text) {
  return registry_docs::strip(text.substr(0, text.find('\n')));
}

std::vector<std::string> tier_names(const Node& registry) {
  const auto declared = registry.find("tiers");
  if (!declared) return {"core"};
  std::vector<std::string> names;
  std::unordered_set<std::string_view> known;
  declared->for_each_element([&](const Node& element) {
    if (!known.insert(element.string()).second) {
      element.refuse("distinct tiers", in_quotes(element.string()) + " again");
    }
    names.emplace_back(element.string());
  });
  if (names.empty()) declared->refuse("at least one tier", "none");
  return names;
}

}  // namespace

Tiers::Tiers(const Node& registry)
    : names_(tier_names(registry)), known_(names_.begin(), names_.end()) {}

std::string_view Tiers::known(const Node& declared) const {
  const auto found = known_.find(declared.string());
  if (found == known_.end()) {
    declared.refuse("one of the tiers", in_quotes(declared.string()));
  }
  return *found;
}

std::string_view name_of(const Node& declared, const json::MaybeNode& name) {
  if (!name) declared.refuse_lack("name");
  if (name->string().empty()) name->refuse("a name", "an empty string");
  return name->string();
}

ToolMembers::ToolMembers(const Node& declared) {
  constexpr std::array<std::string_view, 7> names = {
      "name", "description", "inputSchema", "tier", "summary", "actions", "params"};
  std::tie(name, description, input_schema, tier, summary, actions, params) =
      std::tuple_cat(declared.find_each(names));
}

void read_spec(const ToolMembers& members, const Tiers& tiers, registry_docs::ToolSpec& spec) {
  spec.tier = Text::borrowed(members.tier ? tiers.known(*members.tier) : tiers.first());
  if (members.description) spec.mcp_text = Text::borrowed(members.description->string());
  spec.summary =
      Text::borrowed(members.summary ? members.summary->string() : first_line(spec.mcp_text));
}

void take_inputs(const ToolMembers& members, Inputs inputs, Tool& tool) {
  tool.spec.action_names =
      members.actions ? members.actions->strings() : std::move(inputs.actions);
  tool.spec.actions = tool.spec.action_names;
  tool.spec.all_params = std::move(inputs.params);
  tool.schema = std::move(inputs.schema);
}

Tools tools(const Node& registry, const Tiers& tiers) {
  return read_tools(registry, [&](const Node& declared, std::deque<std::string>&, Tool& tool) {
    const ToolMembers members(declared);
    tool.spec.name = Text::borrowed(name_of(declared, members.name));
    read_spec(members, tiers, tool.spec);
    take_inputs(members, inputs_of(members.params, members.input_schema, inputs_as_declared),
                tool);
  });
}

}  // namespace tesmo_sorvet
