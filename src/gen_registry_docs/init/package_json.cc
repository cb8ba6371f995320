#include "gen_registry_docs/init/package_json.h"

#include <string_view>

#include "json/document.h"
#include "json/node.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::init {
namespace {

namespace fs = std::filesystem;
using json::MaybeNode;
using json::Node;

// The package's name without its scope, which a lone program is called by.
std::string own_name(const Node& package) {
  const MaybeNode name = package.find("name");
  if (!name) return {};
  const std::string_view whole = name->string();
  return std::string(whole.substr(whole.find('/') + 1));
}

std::string build_advice(const Node& package) {
  const MaybeNode scripts = package.find("scripts");
  return scripts && scripts->find("build") ? "; npm run build may make it" : "";
}

Start start_of(const Node& declared, const Node& package, const fs::path& path) {
  const std::string program = fs::path(declared.string()).lexically_normal().generic_string();
  Start start{.said_by = path.string(), .client = {}, .command = "node", .args = {program}};
  if (!fs::exists(path.parent_path() / program)) {
    start.fault = declared.refusal("a file that is there", program + ", which is not") +
                  build_advice(package);
  }
  return start;
}

}  // namespace

Entries entries_of_package_json(const fs::path& root) {
  const fs::path path = root / "package.json";
  Entries entries{.place = path.string() + ": bin", .own_name = {}, .all = {}};
  if (!fs::exists(path)) return entries;
  const json::Document document(
      path.string(), registry_docs::read_bytes(path, registry_docs::FileKind::regular));
  const Node package(document);
  entries.own_name = own_name(package);
  const MaybeNode bin = package.find("bin");
  if (!bin) return entries;
  if (bin->kind() == json::Kind::string) {
    entries.all.push_back({entries.own_name, start_of(*bin, package, path)});
    return entries;
  }
  bin->for_each_member([&](std::string_view name, const Node& program) {
    entries.all.push_back({std::string(name), start_of(program, package, path)});
  });
  return entries;
}

}  // namespace gen_registry_docs::init
