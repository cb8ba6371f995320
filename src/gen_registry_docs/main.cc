// registry-docs: makes every list of a tool server's tools from its registry.
#include <csignal>
#include <exception>
#include <new>

#include "gen_registry_docs/output.h"
#include "gen_registry_docs/run.h"

int main(int argc, char** argv) {
  using gen_registry_docs::print_error;
  // A write beyond a file-size limit is to fail and be undone, not to end the program.
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  if (argc == 0) return 2;
  try {
    const auto options = gen_registry_docs::parse_options({argv + 1, argv + argc});
    return gen_registry_docs::run(options, argv[0]);
  } catch (const std::bad_alloc&) {
    print_error("registry-docs: expected more memory, found none left");
  } catch (const std::exception& error) {
    print_error(error.what());
  }
  return 2;
}
