#include "registry/arrangement.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "json/pointer.h"
#include "registry/members.h"
#include "registry_docs/text.h"
#include "text/wildcard.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using registry_docs::in_quotes;
using registry_docs::catalog::Catalog;
using registry_docs::catalog::Group;
using registry_docs::catalog::Tool;
using ToolsByName = std::unordered_map<std::string_view, Tool*>;

void put_in_order(const Node& registry, Catalog& catalog) {
  const MaybeNode order = registry.find("order");
  if (!order || order->string() == "declared") return;
  if (order->string() != "name") {
    order->refuse(R"("declared" or "name")", in_quotes(order->string()));
  }
  std::ranges::stable_sort(catalog.tools, {}, &Tool::name);
}

ToolsByName by_name(Catalog& catalog) {
  ToolsByName tools;
  for (Tool& tool : catalog.tools) tools.emplace(tool.name, &tool);
  return tools;
}

// What the member "tools" adds to those of an answer; each of the declared ones is its own
// entry.
void add_extras(const Node& registry, Tools which, const ToolsByName& tools) {
  const MaybeNode declared = registry.find("tools");
  if (!declared) return;
  declared->for_each_element([&](const Node& entry) {
    constexpr std::array<std::string_view, 6> names = {"name", "summary", "extra",
                                                       "tier", "actions", "params"};
    if (which == Tools::answered) require_known_members(entry, names);
    const auto [name, summary, extra, tier, actions, params] = entry.find_each(names);
    if (!name) entry.refuse_lack("name");
    const auto found = tools.find(name->string());
    if (found == tools.end()) {
      name->refuse("a tool that the server offers", in_quotes(name->string()));
    }
    if (summary) found->second->summary = summary->string();
    found->second->extra = extra;
  });
}

void put_into(std::string_view group, Tool& tool) {
  if (tool.group.empty()) tool.group = group;
}

// Puts the tools that the list names into the group, unless another has them already.
void claim_names(const Node& list, std::string_view group, const ToolsByName& tools) {
  list.for_each_element([&](const Node& wanted) {
    if (text::has_wildcard(wanted.string())) return;
    const auto found = tools.find(wanted.string());
    if (found == tools.end()) {
      wanted.refuse("a tool that the server offers", in_quotes(wanted.string()));
    }
    put_into(group, *found->second);
  });
}

// The same for those that fit one of its patterns.
void claim_patterns(const Node& list, std::string_view group, Catalog& catalog) {
  list.for_each_element([&](const Node& wanted) {
    if (!text::has_wildcard(wanted.string())) return;
    bool is_found = false;
    for (Tool& tool : catalog.tools) {
      if (!text::fits_wildcards(tool.name, wanted.string())) continue;
      is_found = true;
      put_into(group, tool);
    }
    if (!is_found) {
      wanted.refuse("a pattern that fits a tool", in_quotes(wanted.string()));
    }
  });
}

// The group that a tool's own entry says.
std::string_view own_group(const Tool& tool, const MaybeNode& pointer) {
  if (!pointer || !tool.raw) return {};
  const MaybeNode found = json::pointed_at(*tool.raw, pointer->string());
  return found && found->kind() == Kind::string ? found->string() : std::string_view();
}

Group group_of(const Node& declared) {
  constexpr std::array<std::string_view, 4> names = {"name", "title", "tools", "extra"};
  require_known_members(declared, names);
  const auto [name, title, tools, extra] = declared.find_each(names);
  if (!name) declared.refuse_lack("name");
  if (name->string().empty()) name->refuse("a name", "an empty string");
  return {.name = name->string(),
          .title = title ? title->string() : name->string(),
          .extra = extra};
}

// The groups in order, and the names that they have.
void declare_groups(const Node& declared, const ToolsByName& tools, Catalog& catalog) {
  std::unordered_set<std::string_view> names;
  declared.for_each_element([&](const Node& entry) {
    Group group = group_of(entry);
    if (!names.insert(group.name).second) {
      entry.at("name").refuse("a name that no other group has",
                              in_quotes(group.name) + " again");
    }
    catalog.groups.push_back(std::move(group));
  });
  // A name says more than a pattern does, wherever the two stand.
  const auto for_each_list = [&declared](const auto& claim) {
    declared.for_each_element([&claim](const Node& entry) {
      if (const MaybeNode list = entry.find("tools")) claim(*list, entry.at("name").string());
    });
  };
  for_each_list([&](const Node& list, auto group) { claim_names(list, group, tools); });
  for_each_list([&](const Node& list, auto group) { claim_patterns(list, group, catalog); });
}

// Makes a group for each name that no group is declared for, as they come.
void make_groups(Catalog& catalog) {
  std::unordered_set<std::string_view> names;
  for (const Tool& tool : catalog.tools) {
    if (tool.group.empty() || !names.insert(tool.group).second) continue;
    catalog.groups.push_back({.name = tool.group, .title = tool.group});
  }
}

void fill_groups(const Node& where, Catalog& catalog) {
  std::unordered_map<std::string_view, Group*> groups;
  for (Group& group : catalog.groups) groups.emplace(group.name, &group);
  for (const Tool& tool : catalog.tools) {
    const auto found = groups.find(tool.group);
    if (found == groups.end()) {
      where.refuse("a group for every tool", "none for " + in_quotes(tool.name));
    }
    found->second->tools.push_back(&tool);
  }
}

void add_groups(const Node& registry, const ToolsByName& tools, Catalog& catalog) {
  constexpr std::array<std::string_view, 2> names = {"groups", "group_by"};
  const auto [declared, pointer] = registry.find_each(names);
  if (pointer && !pointer->string().starts_with('/')) {
    pointer->refuse("a JSON pointer into a tool, as in \"/annotations/category\"",
                    in_quotes(pointer->string()));
  }
  if (declared) declare_groups(*declared, tools, catalog);
  if (pointer) {
    for (Tool& tool : catalog.tools) {
      if (tool.group.empty()) tool.group = own_group(tool, pointer);
    }
    if (!declared) make_groups(catalog);
  }
  if (declared || pointer) fill_groups(declared ? *declared : *pointer, catalog);
}

}  // namespace

void arrange(const Node& registry, Tools which, Catalog& catalog) {
  put_in_order(registry, catalog);
  const ToolsByName tools = by_name(catalog);
  add_extras(registry, which, tools);
  add_groups(registry, tools, catalog);
}

}  // namespace registry
