#include <algorithm>

#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text.h"
#include "registry_docs/text/join.h"

namespace registry_docs {
namespace {

template <typename T>
const T& required_key(const std::optional<T>& held, const ToolSpec& tool, const char* key) {
  if (!held) throw MissingKeyError(tool.name, key);
  return *held;
}

const std::string& required_type(const std::optional<std::string>& type, const ToolSpec& tool,
                                 const PropertySchema& property) {
  if (!type) throw MissingKeyError(tool.name + ": the schema of " + property.name, "type");
  return *type;
}

void require_same_parameters(const ToolSpec& tool,
                             const std::vector<PropertySchema>& properties) {
  if (!std::ranges::equal(properties, tool.all_params, {}, &PropertySchema::name,
                          &ParamSpec::name)) {
    throw ValueError(tool.name +
                     ": the CLI schema and the registry name different parameters");
  }
}

std::string default_cell(const ParamSpec& param) {
  std::string cell = param.default_value.is_null() ? std::string(renderers::NONE)
                                                   : markdown::value(param.default_value);
  if (param.action_defaults.empty()) return cell;
  return cell + " (" +
         text::join(param.action_defaults, ", ",
                    [](const auto& pair) {
                      return pair.first + ": " + markdown::value(pair.second);
                    }) +
         ")";
}

std::string type_cell(const ToolSpec& tool, const PropertySchema& property) {
  const std::string& type = required_type(property.type, tool, property);
  if (type != "array" || !property.items) return type;
  return required_type(property.items->type, tool, property) + "[]";
}

std::string sentence(std::string_view description) {
  description = strip(description);
  std::string text;
  text.reserve(description.size() + 1);
  text += description;
  if (!text.empty() && text.back() != '.') text += '.';
  return text;
}

std::string bounds(const PropertySchema& property) {
  const Value& low = property.minimum;
  const Value& high = property.maximum;
  if (low.is_null() && high.is_null()) return "";
  if (high.is_null()) return "At least " + markdown::value(low) + ".";
  if (low.is_null()) return "At most " + markdown::value(high) + ".";
  return "Range: " + markdown::value(low) + "-" + markdown::value(high) + ".";
}

void append_part(std::string& text, const std::string& part) {
  if (!text.empty() && !part.empty()) text += ' ';
  text += part;
}

// What the Description cell holds before it is made safe.
std::string description_cell(const ParamSpec& param, const PropertySchema& property) {
  std::string text = sentence(property.description);
  if (param.values_text) append_part(text, param.values_text(markdown::code));
  append_part(text, bounds(property));
  return text;
}

// A tool without actions has no Actions column.
markdown::Table params_table(const ToolSpec& tool) {
  if (tool.actions.empty()) {
    return markdown::Table({"Parameter", "CLI", "Type", "Required", "Default", "Description"});
  }
  return markdown::Table(
      {"Parameter", "CLI", "Type", "Required", "Default", "Actions", "Description"});
}

// Sorted.
using Names = std::vector<std::string_view>;

Names sorted(const std::vector<std::string>& names) {
  Names views(names.begin(), names.end());
  std::ranges::sort(views);
  return views;
}

void add_row(markdown::Table& table, const Host& host, const ToolSpec& tool,
             const ParamSpec& param, const PropertySchema& property, const Names& required) {
  table.row()
      .code(param.name)
      .code("--" + host.snake_to_kebab(param.name))
      .plain(type_cell(tool, property))
      .plain(std::ranges::binary_search(required, param.name) ? "Yes" : "No")
      .cell(default_cell(param));
  if (!tool.actions.empty()) {
    table.plain(param.applies_to.empty() ? "all" : text::join(param.applies_to, ", "));
  }
  table.cell(description_cell(param, property));
}

}  // namespace

std::string mcp_params_block(const Host& host, const ToolSpec& tool) {
  const std::shared_ptr<const InputSchema> schema = host.get_cli_schema(tool.name);
  const auto& properties = required_key(schema->properties, tool, "properties");
  require_same_parameters(tool, properties);
  const Names required = sorted(required_key(schema->required, tool, "required"));

  markdown::Table table = params_table(tool);
  for (std::size_t i = 0; i < properties.size(); ++i) {
    add_row(table, host, tool, tool.all_params[i], properties[i], required);
  }
  std::string block;
  if (!tool.actions.empty()) {
    block = "**Actions:** " + text::join(tool.action_names, " | ", markdown::code) + "\n\n";
  }
  return block + "#### Parameters\n\n" + table.text();
}

}  // namespace registry_docs
