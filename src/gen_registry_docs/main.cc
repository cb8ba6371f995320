// registry-docs: makes every list of a tool server's tools from its registry.
#include <csignal>
#include <exception>
#include <new>
#include <span>

#include "gen_registry_docs/init/init.h"
#include "gen_registry_docs/output.h"
#include "gen_registry_docs/run.h"

int main(int argc, char** argv) {
  using gen_registry_docs::print_error;
  // A write beyond a file-size limit is to fail and be undone, not to end the program.
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  if (argc == 0) return 2;
  try {
    const std::span<const char* const> arguments(argv + 1, argv + argc);
    if (gen_registry_docs::init::is_named(arguments)) {
      return gen_registry_docs::init::run(
          gen_registry_docs::init::parse_options(arguments.subspan(1)), argv[0]);
    }
    return gen_registry_docs::run(gen_registry_docs::parse_options(arguments), argv[0]);
  } catch (const std::bad_alloc&) {
    print_error("registry-docs: expected more memory, found none left");
  } catch (const std::exception& error) {
    print_error(error.what());
  }
  return 2;
}
