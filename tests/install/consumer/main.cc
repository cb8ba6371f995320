// A host of another project: binds the library by hand and runs it on a directory.
#include <registry_docs/markdown.h>
#include <registry_docs/markers.h>
#include <registry_docs/registry_docs.h>
#include <registry_docs/text.h>

#include <iostream>

int main(int, char** argv) {
  using namespace registry_docs;
  Host host{.TIERS = {"core"}};
  const ToolSpec tool{.name = "a_b", .tier = "core", .all_params = {{"c"}}};
  host.TOOLS.push_back(std::make_shared<const ToolSpec>(tool));
  InputSchema schema{.required = std::vector<std::string_view>{"c"}};
  schema.properties.emplace().push_back({"c", "integer", {}, "", 1});
  host.get_cli_schema = [&](auto) { return std::make_shared<const InputSchema>(schema); };
  host.snake_to_kebab = [](std::string_view name) { return std::string(name); };
  const bool is_right =
      readme_tools_block(host).ends_with("| **Core** | `a_b` | -- |  |") &&
      mcp_params_block(host, tool).ends_with("| integer | Yes | -- | At least 1. |") &&
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
