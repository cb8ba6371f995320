#include "tesmo_sorvet/tool_registry.h"

#include <array>
#include <functional>
#include <optional>
#include <unordered_set>

#include "registry_docs/markdown.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/excerpt.h"
#include "tesmo_sorvet/names.h"

namespace tesmo_sorvet {
namespace {

using registry_docs::ParamSpec;
using registry_docs::ToolSpec;
using registry_docs::Value;
using registry_docs::ValueFormat;
using NameSet = std::unordered_set<std::string_view>;

using MaybeNode = std::optional<Node>;

std::vector<std::string> strings_of(const MaybeNode& list) {
  return list ? list->strings() : std::vector<std::string>();
}

// The text that names the values, each spelled and then written through a format.
std::function<std::string(const ValueFormat&)> values_text(std::vector<Value> values) {
  if (values.empty()) return {};
  return [values = std::move(values)](const ValueFormat& format) {
    std::string text = "One of ";
    for (std::size_t i = 0; i < values.size(); ++i) {
      text += (i == 0 ? "" : ", ") + format(registry_docs::markdown::value(values[i]));
    }
    return text + ".";
  };
}

std::vector<Value> values_of(const MaybeNode& list) {
  std::vector<Value> values;
  if (!list) return values;
  list->for_each_element([&](const Node& element) { values.push_back(element.value()); });
  return values;
}

Value value_of(const MaybeNode& declared) { return declared ? declared->value() : Value(); }

void read_param(const Node& declared, ParamSpec& param) {
  constexpr std::array<std::string_view, 5> names = {"required", "default", "action_defaults",
                                                     "applies_to", "values"};
  param.name = name_of(declared);
  const auto [required, default_value, action_defaults, applies_to, values] =
      declared.find_each(names);
  param.default_value = value_of(default_value);
  if (required) param.required = required->boolean();
  if (action_defaults) {
    action_defaults->for_each_member([&param](std::string_view action, const Node& value) {
      param.action_defaults.emplace_back(action, value.value());
    });
  }
  param.applies_to = strings_of(applies_to);
  param.values_text = values_text(values_of(values));
}

// The parameters that a tool's schema alone declares.
std::vector<ParamSpec> schema_params(const Node& schema) {
  std::vector<ParamSpec> params;
  const auto properties = schema.find("properties");
  if (!properties) return params;
  NameSet required;
  if (const auto names = schema.find("required")) {
    names->for_each_element([&](const Node& name) { required.insert(name.string()); });
  }
  properties->for_each_member([&](std::string_view name, const Node& property) {
    if (name.empty()) property.refuse("a name", "an empty string");
    params.push_back({.name = std::string(name),
                      .required = required.contains(name),
                      .default_value = value_of(property.find("default")),
                      .values_text = values_text(values_of(property.find("enum")))});
  });
  return params;
}

// The parameters, and not the schema's, where both are given; each must be in order.
std::vector<ParamSpec> params(const Node& declared) {
  std::vector<ParamSpec> found;
  if (const auto schema = declared.find("inputSchema")) found = schema_params(*schema);
  const auto params = declared.find("params");
  if (!params) return found;
  found.clear();
  found.reserve(params->size());
  params->for_each_element(
      [&](const Node& param) { read_param(param, found.emplace_back()); });
  return found;
}

std::string tier(const Node& declared, const std::vector<std::string>& tiers,
                 const NameSet& known) {
  const auto found = declared.find("tier");
  if (!found) return tiers.front();
  if (!known.contains(found->string())) {
    found->refuse("one of the tiers", in_quotes(found->string()));
  }
  return std::string(found->string());
}

std::string first_line(std::string_view text) {
  return std::string(registry_docs::strip(text.substr(0, text.find('\n'))));
}

ToolSpec tool(const Node& declared) {
  ToolSpec spec{.name = name_of(declared)};
  spec.mcp_text = string_of(declared, "description");
  const auto summary = declared.find("summary");
  spec.summary = summary ? summary->string() : first_line(spec.mcp_text);
  spec.action_names = strings_of(declared.find("actions"));
  spec.actions = spec.action_names;
  spec.all_params = params(declared);
  return spec;
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

std::vector<std::shared_ptr<const ToolSpec>> tools(const Node& registry,
                                                   const std::vector<std::string>& tiers) {
  const NameSet known_tiers(tiers.begin(), tiers.end());
  std::vector<std::shared_ptr<const ToolSpec>> found;
  NameSet names;
  registry.at("tools").for_each_element([&](const Node& declared) {
    ToolSpec spec = tool(declared);
    spec.tier = tier(declared, tiers, known_tiers);
    found.push_back(std::make_shared<const ToolSpec>(std::move(spec)));
    if (!names.insert(found.back()->name).second) {
      declared.at("name").refuse("a name that no other tool has",
                                 in_quotes(found.back()->name) + " again");
    }
  });
  return found;
}

}  // namespace tesmo_sorvet
