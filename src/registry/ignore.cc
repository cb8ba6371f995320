#include "registry/ignore.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "registry_docs/errors.h"
#include "registry_docs/repository/open_file.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
namespace repository = registry_docs::repository;

bool is_none(const std::error_code& failure) {
  return failure == std::errc::no_such_file_or_directory ||
         failure == std::errc::not_a_directory ||
         failure == std::errc::too_many_symbolic_link_levels ||  // a link, with O_NOFOLLOW
         failure == std::errc::no_such_device_or_address;        // a socket
}

// Nothing for what is no regular file. A pipe is not waited on.
std::optional<std::string> rules_text(const fs::path& path, int flags) {
  try {
    const repository::OpenFile file =
        repository::open_file(path, O_RDONLY | O_NONBLOCK | flags);
    const struct stat status = repository::status_of(file);
    if (!S_ISREG(status.st_mode)) return std::nullopt;
    return repository::rest_of(file, status);
  } catch (const registry_docs::FileError& failure) {
    if (!is_none(failure.code())) throw;
    return std::nullopt;
  }
}

IgnoreRules with_rules_of(IgnoreRules rules, const std::optional<std::string>& text) {
  if (!text) return rules;
  rules.nearest = std::make_shared<const IgnoreRules::Level>(IgnoreRules::Level{
      rules.directory.size(), ignore_rules(*text), std::move(rules.nearest)});
  return rules;
}

bool is_work_tree(const fs::path& directory) {
  return ::access((directory / repository_name).c_str(), F_OK) == 0;
}

fs::path true_path(const fs::path& directory) {
  std::error_code failure;
  fs::path path = fs::canonical(directory, failure);
  if (failure) throw registry_docs::FileError(directory, failure);
  return path;
}

// Nothing for one that is in no work tree.
std::optional<fs::path> top_of_work_tree(fs::path directory) {
  while (!is_work_tree(directory)) {
    if (!directory.has_relative_path()) return std::nullopt;
    directory = directory.parent_path();
  }
  return directory;
}

}  // namespace

IgnoreRules rules_above(const fs::path& directory) {
  const fs::path path = true_path(directory);
  const std::optional<fs::path> top = top_of_work_tree(path);
  if (!top || *top == path) return {};
  fs::path at = *top;
  IgnoreRules rules = rules_of_work_tree(at);
  for (const fs::path& name : path.lexically_relative(*top)) {
    rules = rules_within(with_own_rules(std::move(rules), at), name.native());
    at /= name;
  }
  return rules;
}

IgnoreRules rules_of_work_tree(const fs::path& top) {
  return with_rules_of({}, rules_text(top / repository_name / "info/exclude", 0));
}

IgnoreRules rules_within(const IgnoreRules& rules, std::string_view name) {
  IgnoreRules within = rules;
  within.directory.append(name) += '/';
  return within;
}

IgnoreRules with_own_rules(IgnoreRules rules, const fs::path& directory) {
  return with_rules_of(std::move(rules), rules_text(directory / ignore_file_name, O_NOFOLLOW));
}

bool ignores(const IgnoreRules& rules, std::string_view name, bool is_directory) {
  const std::string path = rules.directory + std::string(name);
  for (const auto* level = rules.nearest.get(); level; level = level->above.get()) {
    const std::string_view from_file = std::string_view(path).substr(level->directory_size);
    const auto last = std::find_if(
        level->rules.rbegin(), level->rules.rend(),
        [&](const IgnoreRule& rule) { return is_of(rule, from_file, is_directory); });
    if (last != level->rules.rend()) return !last->is_inclusion;
  }
  return false;
}

}  // namespace registry
