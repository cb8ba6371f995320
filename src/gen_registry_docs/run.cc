#include "gen_registry_docs/run.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <span>
#include <vector>

#include "gen_registry_docs/answer.h"
#include "gen_registry_docs/check.h"
#include "gen_registry_docs/formats/list.h"
#include "gen_registry_docs/formats/model.h"
#include "gen_registry_docs/help.h"
#include "gen_registry_docs/output.h"
#include "gen_registry_docs/write.h"
#include "port/heap.h"
#include "registry/host.h"
#include "registry_docs/catalog/model.h"
#include "registry_docs/layouts/builtin.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "tesmo_sorvet/host.h"
#include "text/join.h"

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

// Binds the repository, and writes its server's answer down if that was asked for.
registry::Bound bind(const fs::path& root, const Options& options) {
  std::string answer;
  registry::Sources sources{.registry = options.registry,
                            .tools = options.tools,
                            .needs_model = options.action == Action::print_model};
  sources.ask = [&](const registry::Server& server) { return ask(server, root, options); };
  if (options.save_tools) sources.keep = [&answer](std::string_view json) { answer = json; };
  registry::Bound bound = registry::bind(root, sources);
  if (!options.save_tools) return bound;
  if (answer.empty()) {
    throw UsageError(
        "--save-tools: expected a server in the registry, or --tools, found neither");
  }
  save(answer, *options.save_tools);
  return bound;
}

int list(std::span<const registry_docs::GeneratedFile> files, const fs::path& root) {
  print(formats::block_list(registry_docs::report(files, root)));
  return 0;
}

void print_model(const registry::Bound& bound) {
  if (!bound.layouts) {
    throw UsageError("--print-model: expected \"files\" in the registry, found none");
  }
  const registry_docs::catalog::Model model(bound.layouts->catalog(), {});
  print(formats::model_json(model.view()));
}

// Prints a layout that comes with the program.
int print_layout(const std::string& name) {
  using registry_docs::layouts::BuiltinText;
  const auto layouts = registry_docs::layouts::builtin_layouts();
  const auto found = std::ranges::find(layouts, name, &BuiltinText::name);
  if (found == layouts.end()) {
    throw UsageError("--print-layout: expected one of " +
                     text::join(layouts, ", ", &BuiltinText::name) + ", found '" + name + "'");
  }
  return print(found->text), 0;
}

void ready_heap(const fs::path& root, const Options& options) {
  if (options.tools) return port::ready_heap(*options.tools, port::Made::of_answer);
  port::ready_heap(
      options.registry ? fs::path(*options.registry) : root / tesmo_sorvet::registry_path,
      port::Made::of_registry);
}

int carry_out(const Options& options, std::string_view program) {
  const fs::path root = options.root ? fs::path(*options.root) : find_root();
  ready_heap(root, options);
  const registry::Bound bound = bind(root, options);
  if (!options.quiet) {
    for (const std::string& warning : bound.warnings) print_error(warning);
  }
  if (options.action == Action::print_model) return print_model(bound), 0;
  const auto& files = bound.files;
  const int status = options.action == Action::check   ? check(files, root, options, program)
                     : options.action == Action::write ? write(files, root, options, program)
                                                       : list(files, root);
  // The system takes back the memory of a large registry at once. Giving it back piece by
  // piece first is a tenth of a check of 10,000 tools.
  std::_Exit(status);
}

}  // namespace

int run(const Options& options, std::string_view program) {
  if (options.action == Action::help) return print(help_text), 0;
  if (options.action == Action::print_layout) return print_layout(options.layout);
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
