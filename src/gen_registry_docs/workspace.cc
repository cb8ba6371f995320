#include "gen_registry_docs/workspace.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <iterator>
#include <new>
#include <optional>
#include <utility>

#include "gen_registry_docs/answer.h"
#include "port/heap.h"
#include "registry/documents.h"
#include "registry/find_registries.h"
#include "registry_docs/errors.h"
#include "tesmo_sorvet/host.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;
using registry::Answer;
using registry::Repository;
using registry::Source;

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
                   "--root DIR, or begin with registry-docs init");
}

// A directory as it is seen from the current one.
fs::path seen_from_here(const fs::path& directory) {
  std::error_code failure;
  fs::path near = directory.is_absolute() ? fs::proximate(directory, failure)
                                          : directory.lexically_normal();
  if (failure) near = directory;
  if (!near.has_filename() && near.has_parent_path()) near = near.parent_path();
  return near == "." ? fs::path() : near;
}

std::vector<fs::path> roots_of(const Options& options) {
  std::vector<fs::path> named(options.directories.begin(), options.directories.end());
  if (named.empty()) named.emplace_back(options.root.value_or("."));
  std::vector<fs::path> roots;
  for (const fs::path& directory : named) {
    if (!options.recursive) {
      roots.push_back(seen_from_here(directory));
      continue;
    }
    const auto found = registry::find_registries(directory);
    if (found.empty()) {
      throw UsageError(directory.string() + ": expected " + registry::registry_path + " or " +
                       tesmo_sorvet::registry_path + " in it or below, found none");
    }
    std::ranges::transform(found, std::back_inserter(roots), seen_from_here);
  }
  return roots;
}

void require_registry(const fs::path& root, const Options& options) {
  if (options.registry || registry::find_registry(root)) return;
  throw UsageError((root.empty() ? fs::path(".") : root).string() + ": expected " +
                   registry::registry_path + " or " + tesmo_sorvet::registry_path +
                   " in it, found neither");
}

// For the largest file that one check may read.
void ready_heap(const fs::path& root, const Options& options) {
  if (options.tools) return port::ready_heap(*options.tools, port::Made::of_answer);
  port::ready_heap(
      options.registry ? fs::path(*options.registry) : root / tesmo_sorvet::registry_path,
      port::Made::of_registry);
}

void ready_heap(const Repository& repository, const Source& source) {
  if (!source.snapshot) return;
  port::ready_heap(repository.root / *source.snapshot, port::Made::of_answer);
}

void name_from_here(registry::Bound& bound, const fs::path& prefix) {
  for (auto& file : bound.files) file.path = (prefix / file.path).generic_string();
  for (auto& change : bound.changes) change.path = (prefix / change.path).generic_string();
}

// One repository on its way to be bound.
struct Opened {
  fs::path prefix = {};  // of its files' paths
  std::optional<Repository> repository = {};
  std::vector<std::optional<Answer>> answers = {};
  bool is_left_out = false;
};

class Opener {
 public:
  explicit Opener(const Options& options) : options_(options) {}

  Workspace open() {
    const bool is_one = options_.directories.empty() && !options_.recursive;
    workspace_.is_one = is_one;
    if (is_one) {
      workspace_.root = options_.root ? fs::path(*options_.root) : find_root();
      ready_heap(workspace_.root, options_);
      add(workspace_.root, {});
    } else {
      for (const fs::path& root : roots_of(options_)) {
        if (attempt([&] { require_registry(root, options_); })) add(root, root);
      }
    }
    answer_all();
    if (options_.save_tools) save_answer();
    for (Opened& each : opened_) bind(each);
    return std::move(workspace_);
  }

 private:
  // Does what concerns one of several; what hinders it does not hinder the others.
  template <typename Do>
  bool attempt(Do what, bool is_of_several = false) {
    try {
      what();
      return true;
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& error) {
      if (workspace_.is_one && !is_of_several) throw;
      workspace_.failures.emplace_back(error.what());
    }
    return false;
  }

  void add(const fs::path& root, const fs::path& prefix) {
    Opened& opened = opened_.emplace_back(Opened{.prefix = prefix});
    const auto open = [&] {
      opened.repository = registry::open_repository(
          root, {.registry = options_.registry,
                 .has_answer = options_.tools.has_value(),
                 .needs_files = options_.action != Action::print_model});
      opened.answers.resize(opened.repository->sources.size());
    };
    opened.is_left_out = !attempt(open);
  }

  void answer_all() {
    for (Opened& each : opened_) {
      if (each.is_left_out) continue;
      each.is_left_out = !attempt([&] { answer(each); });
    }
    ask_all();
  }

  void answer(Opened& opened) {
    const auto& sources = opened.repository->sources;
    if (options_.tools) {
      require_one(sources, "--tools");
      opened.answers.front() = Answer{*options_.tools, registry::named_file(*options_.tools)};
      return;
    }
    for (std::size_t i = 0; i < sources.size(); ++i) {
      if (!sources[i].server) continue;
      const bool is_of_several = !sources[i].name.empty();
      attempt([&] { answer(opened, i); }, is_of_several);
    }
  }

  void answer(Opened& opened, std::size_t source) {
    if (!options_.offline) return question(opened, source);
    const Source& asked = opened.repository->sources[source];
    ready_heap(*opened.repository, asked);
    opened.answers[source] = registry::kept_answer(*opened.repository, asked);
  }

  static void require_one(const std::vector<Source>& sources, const std::string& option) {
    if (sources.size() == 1) return;
    throw UsageError(option + ": expected one server in the registry, found " +
                     std::to_string(sources.size()));
  }

  void question(Opened& opened, std::size_t source) {
    registry::Server server =
        registry::server_of(*opened.repository, opened.repository->sources[source]);
    if (!opened.prefix.empty()) server.label = opened.prefix.string() + ": " + server.label;
    server.cwd = (opened.repository->root / server.cwd.value_or("")).string();
    questions_.push_back(std::move(server));
    places_.emplace_back(&opened, source);
  }

  void ask_all() {
    if (questions_.empty()) return;
    std::vector<Asked> asked = ask(questions_, options_);
    for (std::size_t i = 0; i < asked.size(); ++i) {
      auto& [opened, source] = places_[i];
      if (asked[i].failure.empty()) {
        opened->answers[source] =
            Answer{"the answer of " + questions_[i].label, std::move(asked[i].answer)};
        continue;
      }
      workspace_.failures.push_back(std::move(asked[i].failure));
      if (opened->repository->sources[source].name.empty()) opened->is_left_out = true;
    }
  }

  void save_answer() {
    std::vector<const Answer*> answers;
    for (const Opened& each : opened_) {
      for (const auto& answer : each.answers) {
        if (answer) answers.push_back(&*answer);
      }
    }
    if (answers.size() == 1) return save(answers.front()->json, *options_.save_tools);
    if (!workspace_.failures.empty()) return;
    throw UsageError(answers.empty()
                         ? "--save-tools: expected a server in the registry, or "
                           "--tools, found neither"
                         : "--save-tools: expected one server in the registry, found " +
                               std::to_string(answers.size()));
  }

  void bind(Opened& opened) {
    if (opened.is_left_out) return;
    attempt([&] { add_bound(opened); });
  }

  void add_bound(Opened& opened) {
    registry::Bound& bound = workspace_.bound.emplace_back(
        registry::bind(*opened.repository, std::move(opened.answers)));
    std::ranges::copy(
        bound.warnings,
        std::back_inserter(options_.strict ? workspace_.failures : workspace_.warnings));
    if (!opened.prefix.empty()) name_from_here(bound, opened.prefix);
    std::ranges::move(bound.changes, std::back_inserter(workspace_.changes));
    workspace_.files.push_back(std::move(bound.files));
  }

  const Options& options_;
  Workspace workspace_ = {};
  std::deque<Opened> opened_ = {};  // which stay where they are
  std::vector<registry::Server> questions_ = {};
  std::vector<std::pair<Opened*, std::size_t>> places_ = {};  // of the answers to them
};

}  // namespace

Workspace open_workspace(const Options& options) { return Opener(options).open(); }

std::vector<registry_docs::FileReport> report(Workspace& workspace,
                                              registry_docs::Detail detail) {
  std::vector<registry_docs::FileReport> all;
  for (const auto& files : workspace.files) {
    try {
      std::ranges::move(registry_docs::report(files, workspace.root, detail),
                        std::back_inserter(all));
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& error) {
      if (workspace.is_one) throw;
      workspace.failures.emplace_back(error.what());
    }
  }
  return all;
}

}  // namespace gen_registry_docs
