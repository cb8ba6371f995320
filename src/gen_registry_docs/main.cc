// gen_registry_docs: makes every list of a tool server's tools from its registry.
#include <exception>
#include <string>

#include "gen_registry_docs/run.h"

int main(int argc, char** argv) {
  try {
    const auto options = gen_registry_docs::parse_options({argv + 1, argv + argc});
    return gen_registry_docs::run(options);
  } catch (const std::exception& error) {
    gen_registry_docs::print_error(std::string(error.what()) + "\n");
    return 2;
  }
}
