#include "support/awkward_host.h"

#include "registry_docs/registry_docs.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace registry_docs::support {
namespace {

using List = Value::List;

struct Parameter {
  PropertySchema schema;
  ParamSpec spec;  // its name is the schema's
};

std::vector<Parameter> parameters() {
  const auto values = [](const ValueFormat& format) {
    return "Takes " + format("x|y") + ",\n" + format("") + format("`") + "!";
  };
  return {
      {{"action", "string", {}, " The operation\n\tto run? "}, {"", true}},
      {{"token_budget", "integer", {}, "Most tokens.", 100},
       {"", false, 2000, {{"beta", 500}}, {"alpha", "beta"}}},
      {{"paths", "array", ItemsSchema{"string"}, "Files |\r\nor \\ \u2003{directories} $1"},
       {"", true, List{"a", "b|c"}, {}, {"beta"}}},
      {{"matrix", "array", ItemsSchema{"array"}, "", nullptr, 0.5},
       {"", false, List{1, List{true, "a"}, nullptr}}},
      {{"loose", "array"}, {"", false, List{}, {}, {"alpha|beta"}, values}},
      {{"flag", "boolean", ItemsSchema{}, "Really!"},
       {"", false, false, {{"alpha", 1}, {"beta", true}, {"alpha", nullptr}}}},
      {{"zero", "integer", {}, "Lists it.", 0}, {"", false, 0, {}, {}, values}},
      {{"ceiling", "integer", {}, ".", {}, 0}, {"", false, "", {{"beta", ""}}}},
      {{"shift", "number", {}, "\u3000", -5, 5}, {"", false, -0.0}},
      {{"text", "string|null", {}, "Ends in a blank. "}, {"", false, "a|b\n c\\|d{e}$1`"}},
      {{"huge", "number", {}, "{{x}}", 1e15, ~std::uint64_t{0}}, {"", false, 1e16}},
      {{"no_default", "object", {}, "…"}, {"", false, {}, {{"beta", List{5, 0.00001}}}}},
  };
}

std::vector<std::shared_ptr<const ToolSpec>> tools() {
  std::vector<ToolSpec> declared = {
      {"größe_suche", "éTÉ X", "Sucht\tnach |Größe|", "Zwei\n\n Absätze: {x} \\b|\\\\"},
      {"many_kinds", "core", "Takes `all`", "1.\n\u2028 2 |", {"a"}, {"alpha", "beta", "c|d"}},
      {"one_action", "éTÉ X", "", "", {"only"}, {"only"}},
      {"plain__tool_", "core", " \n ", "\\1 $& {name} {{name}}"},
  };
  for (const Parameter& parameter : parameters()) {
    declared[1].all_params.push_back(parameter.spec);
    declared[1].all_params.back().name = parameter.schema.name;
  }
  declared[0].all_params = {{"größe_|", true}};
  std::vector<std::shared_ptr<const ToolSpec>> shared;
  for (ToolSpec& tool : declared) shared.push_back(std::make_shared<const ToolSpec>(tool));
  return shared;
}

InputSchema schema(std::string_view tool) {
  using Names = std::vector<Text>;
  InputSchema schema{.required = Names{"zero", "action", "action", "nobody"}};
  schema.properties.emplace();
  if (tool == "größe_suche") schema.properties->push_back({"größe_|", "integer"});
  if (tool != "many_kinds") return schema;
  for (Parameter& parameter : parameters()) schema.properties->push_back(parameter.schema);
  return schema;
}

}  // namespace

Host empty_host() {
  Host host{.TIERS = {"core", "NONE yet", "éTÉ X"}};
  host.get_cli_schema = [](auto tool) { return std::make_shared<InputSchema>(schema(tool)); };
  host.snake_to_kebab = [](auto name) { return replaced(std::string(name), "_", "-"); };
  host.rules_table = [] { return "| \\1 $& | `{x}` \\|\n"; };
  host.skill_table = [](const Facts& facts) {
    return std::to_string(facts.size()) + " {" + facts.at("frameworks") + "} \\| $1\n\n";
  };
  host.ENDPOINT_FRAMEWORKS = {{"z", "Zeta"}, {"a", "Al, pha {x}"}, {"z2", ""}};
  host.TESMO_INSTRUCTION_CONTENT = markers(
      "\u2003\n# Rules \\1\n[rules-routes]\nold\nlines[/rules-routes] [b]\n[/b]\n[c]\u3000\f");
  host.without_markers = [](auto text) { return "\u0085" + std::string(text) + "\x1C"; };
  return host;
}

Host awkward_host() {
  Host host = empty_host();
  host.TOOLS = tools();
  return host;
}

void lay_out(const Host& host, const std::filesystem::path& root) {
  for (const GeneratedFile& file : generated_files(host)) {
    std::string text;
    for (const auto& [name, renderer] : file.blocks) {
      text.insert(0, " {between} \\\n" + markers("[" + name + "]\n[/" + name + "]"));
    }
    write_file(root / file.path, text);
  }
}

}  // namespace registry_docs::support
