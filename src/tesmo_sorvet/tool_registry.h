// The tools and their tiers, as a registry document declares them.
#ifndef TESMO_SORVET_TOOL_REGISTRY_H
#define TESMO_SORVET_TOOL_REGISTRY_H

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "json/node.h"
#include "registry_docs/host.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/inputs.h"

namespace tesmo_sorvet {

struct Tool {
  registry_docs::ToolSpec spec;
  registry_docs::InputSchema schema = {};
};

struct Tools {
  std::vector<Tool> in_order = {};
  std::unordered_map<std::string_view, std::size_t> places = {};  // in that order, by name
  std::deque<std::string> texts = {};  // that the tools borrow and no document holds
};

// The tier names in order.
class Tiers {
 public:
  // ["core"] when the registry names none.
  explicit Tiers(const json::Node& registry);

  [[nodiscard]] const std::vector<std::string>& names() const { return names_; }

  // The tier of that name, refused when there is none, and the first one. All tools of a tier
  // share its one text, which stays in the caches: 0.9 of the time of a check of 100,000
  // tools.
  [[nodiscard]] std::string_view known(const json::Node& declared) const;
  [[nodiscard]] std::string_view first() const { return names_.front(); }

 private:
  std::vector<std::string> names_;
  std::unordered_set<std::string_view> known_;  // they borrow from the names
};

// The member "name" of `declared`, which must be given and not empty.
std::string_view name_of(const json::Node& declared, const json::MaybeNode& name);

// The members of a tool.
struct ToolMembers {
  explicit ToolMembers(const json::Node& declared);

  json::MaybeNode name, description, input_schema, tier, summary, actions, params;
};

// All of a tool but its parameters and what follows from them.
void read_spec(const ToolMembers& members, const Tiers& tiers, registry_docs::ToolSpec& spec);

// Gives the tool its parameters and its schema, and the actions of the inputs unless it
// declares its own.
void take_inputs(const ToolMembers& members, Inputs inputs, Tool& tool);

// The tools in order, each made by `read(element, texts, tool)`. Refuses a name given twice.
template <typename Read>
Tools read_tools(const json::Node& registry, Read read) {
  const json::Node declared = registry.at("tools");
  Tools found;
  const std::size_t count = declared.size();
  found.in_order.reserve(count);
  found.places.reserve(count);
  declared.for_each_element([&](const json::Node& element) {
    Tool& tool = found.in_order.emplace_back();
    read(element, found.texts, tool);
    if (!found.places.try_emplace(tool.spec.name, found.places.size()).second) {
      element.at("name").refuse("a name that no other tool has",
                                registry_docs::in_quotes(tool.spec.name) + " again");
    }
  });
  return found;
}

// The tools of the first host. They borrow from the document and from the tiers.
Tools tools(const json::Node& registry, const Tiers& tiers);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_TOOL_REGISTRY_H
