#include <algorithm>
#include <array>
#include <span>

#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/renderers/tools.h"
#include "registry_docs/text.h"
#include "text/join.h"
#include "text/value.h"

namespace registry_docs {
namespace {

using text::append_value;

template <typename T>
const T& required_key(const std::optional<T>& held, const ToolSpec& tool, const char* key) {
  if (!held) throw MissingKeyError(std::string(tool.name), key);
  return *held;
}

[[noreturn]] void refuse_lack_of_type(const ToolSpec& tool, const PropertySchema& property) {
  const std::string name(tool.name);
  throw MissingKeyError(name + ": the schema of " + std::string(property.name), "type");
}

std::string_view required_type(const std::optional<Text>& type, const ToolSpec& tool,
                               const PropertySchema& property) {
  if (!type) refuse_lack_of_type(tool, property);
  return *type;
}

void require_same_parameters(const ToolSpec& tool,
                             const std::vector<PropertySchema>& properties) {
  if (!std::ranges::equal(properties, tool.all_params, {}, &PropertySchema::name,
                          &ParamSpec::name)) {
    throw ValueError(std::string(tool.name) +
                     ": the CLI schema and the registry name different parameters");
  }
}

void append_default(std::string& to, const ParamSpec& param) {
  if (param.default_value.is_null()) {
    to += renderers::NONE;
  } else {
    append_value(to, param.default_value);
  }
  if (param.action_defaults.empty()) return;
  to += " (";
  text::append_joined(to, param.action_defaults, ", ", [&to](const auto& pair) {
    to += pair.first;
    to += ": ";
    append_value(to, pair.second);
  });
  to += ')';
}

void append_type(std::string& to, const ToolSpec& tool, const PropertySchema& property) {
  const std::string_view type = required_type(property.type, tool, property);
  const bool is_list = type == "array" && property.items;
  to += is_list ? required_type(property.items->type, tool, property) : type;
  if (is_list) to += "[]";
}

void append_sentence(std::string& to, std::string_view description) {
  description = strip(description);
  to += description;
  if (!description.empty() && description.back() != '.') to += '.';
}

void append_bounds(std::string& to, const Value& low, const Value& high) {
  if (low.is_null() && high.is_null()) return;
  to += low.is_null() ? " At most " : high.is_null() ? " At least " : " Range: ";
  if (!low.is_null()) append_value(to, low);
  if (!low.is_null() && !high.is_null()) to += '-';
  if (!high.is_null()) append_value(to, high);
  to += '.';
}

// What the Description cell holds before it is made safe, which takes away a blank at its
// beginning.
void append_description(std::string& to, const ParamSpec& param,
                        const PropertySchema& property) {
  append_sentence(to, property.description);
  if (param.values_text) {
    to += ' ';
    to += param.values_text(markdown::code);
  }
  append_bounds(to, property.minimum, property.maximum);
}

std::string above_table(const ToolSpec& tool) {
  std::string text;
  if (!tool.actions.empty()) {
    text += "**Actions:** ";
    text::append_joined(text, tool.action_names, " | ",
                        [&](std::string_view name) { markdown::append_code(text, name); });
    text += "\n\n";
  }
  text += "#### Parameters\n\n";
  return text;
}

// A host without a command line has no CLI column, a tool without actions no Actions column.
markdown::Table params_table(const Host& host, const ToolSpec& tool) {
  std::array<std::string_view, 7> header;
  std::size_t size = 0;
  header[size++] = "Parameter";
  if (host.PRODUCT.command) header[size++] = "CLI";
  for (const std::string_view title : {"Type", "Required", "Default"}) header[size++] = title;
  if (!tool.actions.empty()) header[size++] = "Actions";
  header[size++] = "Description";
  return markdown::Table(std::span(header).first(size), above_table(tool));
}

// Sorted.
using Names = std::vector<std::string_view>;

Names sorted(const std::vector<Text>& texts) {
  Names names(texts.begin(), texts.end());
  std::ranges::sort(names);
  return names;
}

void append_option(std::string& to, const Host& host, const ParamSpec& param) {
  to += std::string_view("`--");
  to += host.snake_to_kebab(param.name);
  to += '`';
}

void add_row(markdown::Table& table, const Host& host, const ToolSpec& tool,
             const ParamSpec& param, const PropertySchema& property, const Names& required) {
  table.row().code(param.name);
  if (host.PRODUCT.command) {
    table.plain([&](std::string& to) { append_option(to, host, param); });
  }
  table.plain([&](std::string& to) { append_type(to, tool, property); })
      .plain(std::ranges::binary_search(required, std::string_view(param.name)) ? "Yes" : "No")
      .cell([&](std::string& to) { append_default(to, param); });
  if (!tool.actions.empty()) {
    table.plain(param.applies_to.empty() ? "all" : text::join(param.applies_to, ", "));
  }
  table.cell([&](std::string& to) { append_description(to, param, property); });
}

}  // namespace

std::string mcp_params_block(const Host& host, const ToolSpec& tool) {
  const std::shared_ptr<const InputSchema> schema = host.get_cli_schema(tool.name);
  if (!schema) throw MissingKeyError(std::string(tool.name), "inputSchema");
  const auto& properties = required_key(schema->properties, tool, "properties");
  require_same_parameters(tool, properties);
  const Names required = sorted(required_key(schema->required, tool, "required"));

  markdown::Table table = params_table(host, tool);
  for (std::size_t i = 0; i < properties.size(); ++i) {
    add_row(table, host, tool, tool.all_params[i], properties[i], required);
  }
  return std::move(table).text();
}

}  // namespace registry_docs
