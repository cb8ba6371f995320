#include "gen_registry_docs/run.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "gen_registry_docs/answer.h"
#include "gen_registry_docs/check.h"
#include "gen_registry_docs/formats/list.h"
#include "gen_registry_docs/help.h"
#include "gen_registry_docs/output.h"
#include "gen_registry_docs/write.h"
#include "port/heap.h"
#include "registry/host.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "tesmo_sorvet/host.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;

// The nearest directory, from the current one upward, that holds a registry file.
fs::path find_root() {
  std::error_code failure;
  const fs::path start = fs::current_path(failure);
  if (failure) throw registry_docs::FileError("the current directory", failure);
  for (fs::path directory = start;; directory = directory.parent_path()) {
    if (registry::find_registry(directory)) return directory;
    if (directory == directory.parent_path()) break;
  }
  throw UsageError(start.string() + ": expected " + tesmo_sorvet::registry_path + " or " +
                   registry::registry_path +
                   " here or in a directory above, found none; name the repository with "
                   "--root DIR");
}

// Binds the host, and writes its server's answer down if that was asked for.
registry_docs::Host bind(const fs::path& root, const Options& options) {
  std::string answer;
  registry::Sources sources{.registry = options.registry, .tools = options.tools};
  sources.ask = [&](const registry::Server& server) { return ask(server, root, options); };
  if (options.save_tools) sources.keep = [&answer](std::string_view json) { answer = json; };
  registry_docs::Host host = registry::bind_host(root, sources);
  if (!options.save_tools) return host;
  if (answer.empty()) {
    throw UsageError(
        "--save-tools: expected a server in the registry, or --tools, found neither");
  }
  save(answer, *options.save_tools);
  return host;
}

int list(const registry_docs::Host& host, const fs::path& root) {
  print(formats::block_list(registry_docs::report(host, root)));
  return 0;
}

int carry_out(const Options& options, std::string_view program) {
  const fs::path root = options.root ? fs::path(*options.root) : find_root();
  port::ready_heap(options.registry ? fs::path(*options.registry)
                                    : root / tesmo_sorvet::registry_path);
  const registry_docs::Host host = bind(root, options);
  const int status = options.action == Action::check   ? check(host, root, options, program)
                     : options.action == Action::write ? write(host, root, options, program)
                                                       : list(host, root);
  // The system takes back the memory of a large registry at once. Giving it back piece by
  // piece first is a tenth of a check of 10,000 tools.
  std::_Exit(status);
}

}  // namespace

int run(const Options& options, std::string_view program) {
  if (options.action == Action::help) return print(help_text), 0;
  if (options.action == Action::version) {
    return print("gen_registry_docs " REGISTRY_DOCS_VERSION "\n"), 0;
  }
  try {
    return carry_out(options, program);
  } catch (const std::exception& error) {
    print_failure(error.what(), options);
    throw;
  }
}

}  // namespace gen_registry_docs
