#include "tesmo_sorvet/tool_registry.h"

#include <array>
#include <deque>
#include <optional>
#include <unordered_set>
#include <utility>

#include "registry_docs/markers.h"
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

// In a server's answer no part of the input schema's beginning may be left out.
void require_input_schema(const Node& declared, const std::optional<Node>& input_schema,
                          std::string_view tool) {
  const std::string found = "nothing in the tool " + in_quotes(tool);
  if (!input_schema) declared.refuse_lack("inputSchema", found);
  if (!input_schema->find("type")) input_schema->refuse_lack("type", found);
}

// What all documents read alike.
struct Reading {
  Origin origin;
  const std::vector<std::string>& tiers;
  const NameSet known_tiers;
};

void read_tool(const Node& declared, const Reading& reading, std::deque<std::string>& texts,
               Tool& tool) {
  constexpr std::array<std::string_view, 7> names = {
      "name", "description", "inputSchema", "tier", "summary", "actions", "params"};
  auto [name, description, input_schema, tier, summary, actions, params] =
      declared.find_each(names);
  tool.spec.name = name_of(declared, name);
  if (reading.origin == Origin::server) {
    require_input_schema(declared, input_schema, tool.spec.name);
    tier = summary = actions = params = std::nullopt;
  }
  if (reading.origin != Origin::first_host) refuse_markers(declared);
  tool.spec.tier = tier ? known_tier(*tier, reading.known_tiers) : reading.tiers.front();
  if (description) tool.spec.mcp_text = description->string();
  tool.spec.summary = summary ? summary->string() : first_line(tool.spec.mcp_text);
  const SchemaRules rules = reading.origin == Origin::first_host ? SchemaRules::as_declared
                                                                 : SchemaRules::json_schema;
  Inputs inputs = inputs_of(params, input_schema, rules, tool.spec.name, texts);
  tool.spec.action_names = actions ? actions->strings() : std::move(inputs.actions);
  tool.spec.actions = tool.spec.action_names;
  tool.spec.all_params = std::move(inputs.params);
  tool.schema = std::move(inputs.schema);
}

}  // namespace

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

Tools tools(const Node& registry, const std::vector<std::string>& tiers, Origin origin) {
  const Reading reading{origin, tiers, NameSet(tiers.begin(), tiers.end())};
  const Node declared = registry.at("tools");
  Tools found;
  const std::size_t count = declared.size();
  found.in_order.reserve(count);
  found.places.reserve(count);
  declared.for_each_element([&](const Node& element) {
    Tool& tool = found.in_order.emplace_back();
    read_tool(element, reading, found.texts, tool);
    if (!found.places.try_emplace(tool.spec.name, found.places.size()).second) {
      element.at("name").refuse("a name that no other tool has",
                                in_quotes(tool.spec.name) + " again");
    }
  });
  return found;
}

}  // namespace tesmo_sorvet
