// A host of another project: binds the library by hand and runs it on a directory.
#include <registry_docs/markdown.h>
#include <registry_docs/markers.h>
#include <registry_docs/registry_docs.h>
#include <registry_docs/text.h>

#include <iostream>

namespace {

using namespace registry_docs;

// All of its texts are made here and gone when it is read.
Host host_of(const std::string& name) {
  Host host{.TIERS = {name + "_tier"}};
  const ParamSpec param{.name = name + "_param", .applies_to = {name + "_1", name + "_2"}};
  host.TOOLS.push_back(std::make_shared<ToolSpec>(ToolSpec{.name = name + "_tool",
                                                           .tier = name + "_tier",
                                                           .actions = {name + "_1"},
                                                           .action_names = {name + "_1"},
                                                           .all_params = {param}}));
  InputSchema schema{.required = std::vector<Text>{name + "_param"}};
  schema.properties.emplace().push_back({name + "_param", name + "_type", {}, name, 1});
  host.get_cli_schema = [schema](auto) { return std::make_shared<InputSchema>(schema); };
  host.snake_to_kebab = [](std::string_view text) { return std::string(text); };
  return host;
}

}  // namespace

int main(int, char** argv) {
  Host host;
  host = host_of("x");
  const bool is_right =
      readme_tools_block(host).ends_with("| **X_tier** | `x_tool` | `x_1` |  |") &&
      mcp_params_block(host, *host.TOOLS.front())
          .ends_with(
              "| `x_param` | `--x_param` | x_type | Yes | -- | x_1, x_2 | x. At least 1. |") &&
      block_names("<!-- registry:é -->\n<!-- /registry:é -->").at(0) == "é" &&
      find_marker("x<!-- /registry:y -->", 0)->name == "y" && strip(" z\n") == "z" &&
      markdown::value(1.0) == "1.0";
  try {
    stale_blocks(host, argv[1]);
  } catch (const FileError& error) {
    if (is_right && error.code() == std::errc::no_such_file_or_directory) return 0;
  }
  std::cout << "the library is not as its headers say\n";
  return 1;
}
