#include "gen_registry_docs/init/pyproject.h"

#include <toml++/toml.h>
#include <string>
#include <string_view>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::init {
namespace {

namespace fs = std::filesystem;

toml::table table_of(const fs::path& path) {
  const std::string text = registry_docs::read_text(path);
  try {
    return toml::parse(std::string_view(text));
  } catch (const toml::parse_error& error) {
    const auto& at = error.source().begin;
    throw registry_docs::InputError(
        path.string() + ":" + std::to_string(at.line) + ":" + std::to_string(at.column) +
        ": expected TOML, found none: " + registry_docs::visible(error.description()));
  }
}

}  // namespace

Entries entries_of_pyproject(const fs::path& root) {
  const fs::path path = root / "pyproject.toml";
  Entries entries{.place = path.string() + ": project.scripts", .own_name = {}, .all = {}};
  if (!fs::exists(path)) return entries;
  const toml::table file = table_of(path);
  entries.own_name = file["project"]["name"].value_or(std::string());
  const toml::table* const scripts = file["project"]["scripts"].as_table();
  if (scripts == nullptr) return entries;
  const bool has_uv = fs::exists(root / "uv.lock");
  for (const auto& [key, value] : *scripts) {
    const std::string name(key.str());
    Start start{.said_by = path.string(), .client = {}, .command = name};
    if (has_uv) {
      start.command = "uv";
      start.args = {"run", name};
    }
    entries.all.push_back({name, std::move(start)});
  }
  return entries;
}

}  // namespace gen_registry_docs::init
