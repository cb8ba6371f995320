#include "gen_registry_docs/run.h"

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <string>
#include <vector>

#include "gen_registry_docs/check.h"
#include "gen_registry_docs/formats/list.h"
#include "gen_registry_docs/formats/model.h"
#include "gen_registry_docs/help.h"
#include "gen_registry_docs/output.h"
#include "gen_registry_docs/version.h"
#include "gen_registry_docs/workspace.h"
#include "gen_registry_docs/write.h"
#include "registry_docs/catalog/model.h"
#include "registry_docs/layouts/builtin.h"
#include "registry_docs/report.h"
#include "text/join.h"

namespace gen_registry_docs {
namespace {

int list(Workspace& workspace) {
  print(formats::block_list(report(workspace, registry_docs::Detail::everything)));
  for (const std::string& failure : workspace.failures) print_error_lines(failure);
  return workspace.failures.empty() ? 0 : 2;
}

int print_model(const Workspace& workspace) {
  for (const std::string& failure : workspace.failures) print_error_lines(failure);
  if (workspace.bound.empty()) return 2;
  std::vector<formats::NamedModel> models;
  std::deque<registry_docs::catalog::Model> made;
  for (const auto& layouts : workspace.bound.front().layouts) {
    made.emplace_back(layouts->catalog(), registry_docs::catalog::Model::Block());
    models.push_back({layouts->name(), made.back().view()});
  }
  if (models.empty()) {
    throw UsageError(
        "--print-model: expected a server, or a registry with \"product\" or "
        "\"files\", found neither");
  }
  print(formats::model_json(models));
  return workspace.failures.empty() ? 0 : 2;
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

int carry_out(const Options& options, std::string_view program) {
  Workspace workspace = open_workspace(options);
  if (!options.quiet) {
    for (const std::string& warning : workspace.warnings) print_error(warning);
  }
  if (options.action == Action::print_model) return print_model(workspace);
  const int status = options.action == Action::check   ? check(workspace, options, program)
                     : options.action == Action::write ? write(workspace, options, program)
                                                       : list(workspace);
  // The system takes back the memory of a large registry at once. Giving it back piece by
  // piece first is a tenth of a check of 10,000 tools.
  std::_Exit(status);
}

}  // namespace

int run(const Options& options, std::string_view program) {
  if (options.action == Action::help) return print(help_text), 0;
  if (options.action == Action::print_layout) return print_layout(options.layout);
  if (options.action == Action::version) {
    return print("registry-docs " + std::string(version()) + "\n"), 0;
  }
  try {
    return carry_out(options, program);
  } catch (const std::exception& error) {
    print_failure(error.what(), options);
    throw;
  }
}

}  // namespace gen_registry_docs
