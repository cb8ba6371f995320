// Prints the text of one block, as its renderer returns it, or the rules text that the
// host binds: print_block ROOT REGISTRY (BLOCK | rules-text).
#include <exception>
#include <iostream>
#include <string_view>

#include "registry/host.h"
#include "registry_docs/registry_docs.h"

int main(int argc, char** argv) try {
  const std::string_view wanted = argc == 4 ? argv[3] : "";
  const registry_docs::Host host = registry::bind_host(argv[1], argv[2]);
  if (wanted == "rules-text") std::cout << host.TESMO_INSTRUCTION_CONTENT;
  for (const auto& file : generated_files(host)) {
    for (const auto& [name, renderer] : file.blocks) {
      if (name == wanted) std::cout << renderer();
    }
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
