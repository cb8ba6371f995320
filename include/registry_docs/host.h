// What a host project hands to the generator: its tools, their input schemas, its
// routing tables and its rules text, bound once in a plain value. All texts are UTF-8.
//
//     #include <registry_docs/registry_docs.h>
//
//     #include <cstdio>
//
//     using namespace registry_docs;
//
//     // Offers to read each of the tables.
//     Host host_of(const std::vector<std::string>& tables) {
//       Host host{.TIERS = {"core"}};
//       host.PRODUCT = {.name = "Shelf", .purpose = "tables", .command = std::nullopt};
//       host.FILES = {{.path = "README.md", .blocks = {"readme-tools", "params:*"}}};
//       for (const std::string& table : tables) {
//         host.TOOLS.push_back(std::make_shared<ToolSpec>(
//             ToolSpec{.name = "read_" + table,
//                      .tier = "core",
//                      .summary = "Returns the rows of " + table,
//                      .all_params = {{.name = "limit", .default_value = 100}}}));
//       }
//       const auto schema = std::make_shared<InputSchema>();
//       schema->properties.emplace().push_back({.name = "limit", .type = "integer"});
//       schema->required.emplace();
//       host.get_cli_schema = [schema](auto) { return schema; };
//       return host;
//     }
//
//     int main(int argc, char** argv) {
//       const Host host = host_of({argv + 1, argv + argc});
//       for (const GeneratedFile& file : generated_files(host)) {
//         for (const auto& [name, render] : file.blocks) std::puts(render().c_str());
//       }
//     }
//
// The texts of the records are their own, wherever they come from. Only a host that keeps its
// declarations whole, and shares its records with them, has the records borrow their texts,
// with `Text::borrowed`.
//
// The generator reads a host and never changes it, and keeps nothing of it between
// calls: a tool added to `Host::TOOLS` shows in the next rendering. What a host's
// operation throws passes through the generator unchanged.
#ifndef REGISTRY_DOCS_HOST_H
#define REGISTRY_DOCS_HOST_H

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "registry_docs/text_value.h"
#include "registry_docs/value.h"

namespace registry_docs {

// Writes one value the way its surroundings need it, as a code span for instance.
using ValueFormat = std::function<std::string(std::string_view)>;

// One parameter of a tool.
struct ParamSpec {
  Text name;                 // snake_case, as the tool's input schema spells it
  bool required = false;     // the shortest command line names exactly the required ones
  Value default_value = {};  // null: the parameter has no default
  // Defaults that differ by action, in the order in which they are shown.
  std::vector<std::pair<Text, Value>> action_defaults = {};
  std::vector<Text> applies_to = {};  // action names; empty: every action
  // The text that names the accepted values, each written through the format. Left
  // unset, or returning the empty text: there are none to name.
  std::function<std::string(const ValueFormat&)> values_text = {};
};

// One tool.
struct ToolSpec {
  Text name;                               // snake_case, unique in the registry
  Text tier = {};                          // one of Host::TIERS
  Text summary = {};                       // what the tool is for, for table cells
  Text mcp_text = {};                      // what MCP sends an agent for this tool
  std::vector<Text> actions = {};          // empty exactly when `action_names` is
  std::vector<Text> action_names = {};     // in order of declaration
  std::vector<ParamSpec> all_params = {};  // in the order of the schema's properties
};

// Whether an array's items have a declared type, and which.
struct ItemsSchema {
  std::optional<Text> type = {};
};

// The schema of one property. An unset `type` is a missing key.
struct PropertySchema {
  Text name;
  std::optional<Text> type = {};
  std::optional<ItemsSchema> items = {};  // read only where `type` is "array"
  Text description = {};
  Value minimum = {};  // null: no lower bound
  Value maximum = {};  // null: no upper bound
};

// A tool's input schema, as the host's command line prints it. Both members must be
// there, if only empty; an unset one is a missing key.
struct InputSchema {
  std::optional<std::vector<PropertySchema>> properties = {};  // in order, names distinct
  std::optional<std::vector<Text>> required = {};              // read as a set
};

// What the blocks' texts call the host; unless it says so, the first host. Texts of one line
// that hold no marker.
struct Product {
  std::string name = "Tesmo Sorvet";
  std::string purpose = "code intelligence";
  // What the command line of a tool begins with, without a backquote. Unset: there is none, so
  // that no block shows how a tool or a parameter is spelled there.
  std::optional<std::string> command = "tesmo-sorvet query";
};

// How a file stores its blocks.
enum class Encoding {
  none,
  literal,   // as a plain Python string literal holds them: backslashes doubled
  template_  // as a literal that str.format fills in holds them: braces doubled as well
};

// A file that holds generated blocks, and their names. "params:*" stands for one block of
// parameters for each tool.
struct FileDeclaration {
  std::string path;  // relative to the repository's root, "/"-separated
  std::vector<std::string> blocks;
  Encoding encoding = Encoding::none;
};

inline constexpr std::string_view all_params = "params:*";

// The names that a declaration may give, in the order in which they are explained.
std::vector<std::string_view> block_choices();

// The files of a host that declares none.
std::vector<FileDeclaration> default_files();

// Facts that a routing table's notes may name, by name.
using Facts = std::map<std::string, std::string, std::less<>>;

// The bound host. An operation that is left unset throws std::bad_function_call from
// the first renderer that needs it. What an operation is handed lasts as long as the call.
//
// A host may be copied, moved and assigned. A table of generated files reads the host in the
// place where it stood when the table was made, whatever stands there now.
struct Host {
  // The tier names in documentation order; fixed once the host is bound.
  std::vector<std::string> TIERS = {};

  Product PRODUCT = {};

  // The files that hold generated blocks, each once; the block names of one are distinct.
  std::vector<FileDeclaration> FILES = default_files();

  // The tools in registry order, none of them null. The records are shared, so that a table
  // of generated files made before a change to this list keeps the tools it was made from.
  std::vector<std::shared_ptr<const ToolSpec>> TOOLS = {};

  // The input schema of the tool of this name. Null is a missing key, "inputSchema".
  std::function<std::shared_ptr<const InputSchema>(std::string_view name)> get_cli_schema = {};

  // The form that the command line uses for a tool's or a parameter's name.
  std::function<std::string(std::string_view name)> snake_to_kebab = {};

  // The routing table of the rules block.
  std::function<std::string()> rules_table = {};

  // The "Route by need" table of the skill, its notes filled in with the facts.
  std::function<std::string(const Facts& facts)> skill_table = {};

  // Keys and names of the web frameworks whose endpoints the host recognises, in order.
  std::vector<std::pair<std::string, std::string>> ENDPOINT_FRAMEWORKS = {};

  // The rules text, its routing table in a generated block.
  std::string TESMO_INSTRUCTION_CONTENT = {};

  // The rules text with its block markers taken out.
  std::function<std::string(std::string_view text)> without_markers = {};
};

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_HOST_H
