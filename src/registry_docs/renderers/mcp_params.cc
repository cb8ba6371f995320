#include <algorithm>
#include <unordered_set>

#include "registry_docs/markdown.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text.h"
#include "registry_docs/text/join.h"

namespace registry_docs {
namespace {

// What a schema must hold under `key`; `where` begins the message when it does not.
template <typename T>
const T& required_key(const std::optional<T>& held, const std::string& where,
                      const char* key) {
  if (!held) throw MissingKeyError(where, key);
  return *held;
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
  const std::string where = tool.name + ": the schema of " + property.name;
  const std::string& type = required_key(property.type, where, "type");
  if (type != "array" || !property.items) return type;
  return required_key(property.items->type, where + ": its items", "type") + "[]";
}

std::string sentence(std::string_view description) {
  std::string text(strip(description));
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

std::string description_cell(const ParamSpec& param, const PropertySchema& property) {
  std::vector<std::string> parts = {sentence(property.description)};
  parts.push_back(param.values_text ? param.values_text(markdown::code) : "");
  parts.push_back(bounds(property));
  std::erase(parts, "");
  return markdown::cell(text::join(parts, " "));
}

using RequiredNames = std::unordered_set<std::string_view>;

std::vector<std::string> params_row(const Host& host, const ToolSpec& tool,
                                    const ParamSpec& param, const PropertySchema& property,
                                    const RequiredNames& required) {
  std::vector<std::string> row = {
      markdown::code(param.name), markdown::code("--" + host.snake_to_kebab(param.name)),
      type_cell(tool, property), required.contains(param.name) ? "Yes" : "No",
      markdown::cell(default_cell(param))};
  if (!tool.actions.empty()) {
    row.push_back(param.applies_to.empty() ? "all" : text::join(param.applies_to, ", "));
  }
  row.push_back(description_cell(param, property));
  return row;
}

std::vector<std::string> params_header(const ToolSpec& tool) {
  std::vector<std::string> header = {"Parameter", "CLI", "Type", "Required", "Default"};
  if (!tool.actions.empty()) header.emplace_back("Actions");
  header.emplace_back("Description");
  return header;
}

}  // namespace

std::string mcp_params_block(const Host& host, const ToolSpec& tool) {
  const InputSchema schema = host.get_cli_schema(tool.name);
  const auto& properties = required_key(schema.properties, tool.name, "properties");
  require_same_parameters(tool, properties);
  const auto& required_names = required_key(schema.required, tool.name, "required");
  const RequiredNames required(required_names.begin(), required_names.end());

  std::vector<std::vector<std::string>> rows;
  for (std::size_t i = 0; i < properties.size(); ++i) {
    rows.push_back(params_row(host, tool, tool.all_params[i], properties[i], required));
  }
  std::string block;
  if (!tool.actions.empty()) {
    block = "**Actions:** " + text::join(tool.action_names, " | ", markdown::code) + "\n\n";
  }
  return block + "#### Parameters\n\n" +
         text::join(markdown::table(params_header(tool), rows), "\n");
}

}  // namespace registry_docs
