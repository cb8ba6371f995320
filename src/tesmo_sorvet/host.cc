#include "tesmo_sorvet/host.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/additions.h"
#include "tesmo_sorvet/files.h"
#include "tesmo_sorvet/product.h"
#include "tesmo_sorvet/setup/config.h"
#include "tesmo_sorvet/tool_registry.h"
#include "tesmo_sorvet/tool_routes.h"
#include "tesmo_sorvet/tool_schemas.h"
#include "tesmo_sorvet/workers/api_endpoints.h"

namespace tesmo_sorvet {
namespace {

constexpr const char* config_path = "src/tesmo_sorvet/setup/config.py";

std::string standard_input() {
  std::string bytes;
  std::array<char, 65536> buffer{};
  while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), stdin)) {
    bytes.append(buffer.data(), count);
  }
  if (std::ferror(stdin) != 0) {
    throw registry_docs::FileError("-", {errno, std::generic_category()});
  }
  return bytes;
}

// Only a file that was named may be a pipe: the one in a repository is not waited on.
std::string named_file(const std::string& name) {
  if (name == "-") return standard_input();
  return registry_docs::read_bytes(name, registry_docs::FileKind::regular_or_pipe);
}

Document repository_file(const std::filesystem::path& path) {
  return {path.string(), registry_docs::read_bytes(path, registry_docs::FileKind::regular)};
}

// The first place is looked at by reading it, as most registries stand there.
Document registry_document(const std::filesystem::path& root,
                           const std::optional<std::string>& registry) {
  if (registry) return {*registry, named_file(*registry)};
  try {
    return repository_file(root / registry_path);
  } catch (const registry_docs::FileError& error) {
    const auto other = root / general_registry_path;
    const bool is_absent = error.code() == std::errc::no_such_file_or_directory;
    if (!is_absent || ::access(other.c_str(), F_OK) != 0) throw;
    return repository_file(other);
  }
}

// The answer to tools/list, if the tools come from one.
std::unique_ptr<Document> answer_document(const Node& registry, const Sources& sources) {
  const std::optional<Server> declared = server(registry);
  if (!sources.tools && !declared) return nullptr;
  if (!sources.tools && !sources.ask) {
    registry.at("server").refuse("a saved answer beside it", "none");
  }
  std::string name = sources.tools ? *sources.tools : "the answer of " + declared->command;
  std::string json = sources.tools ? named_file(*sources.tools) : sources.ask(*declared);
  if (sources.keep) sources.keep(json);
  return std::make_unique<Document>(std::move(name), std::move(json));
}

// What the registry declares. The host's records lie in here, and borrow from the documents.
struct Declarations {
  Declarations(const std::filesystem::path& root, const Sources& sources)
      : document(registry_document(root, sources.registry)),
        files(tesmo_sorvet::files(Node(document), product, root)),
        answer(answer_document(Node(document), sources)) {
    if (answer) add_declared(Node(document), tiers, tools);
    // 0.9 of the time of 10,000 tools: the files take its room.
    document.keep_texts_only();
    if (answer) answer->keep_texts_only();
  }

  [[nodiscard]] Origin origin() const {
    if (answer) return Origin::server;
    const Node registry(document);
    const bool is_first = !registry.find("product") && !registry.find("files");
    return is_first ? Origin::first_host : Origin::registry;
  }

  Document document;
  registry_docs::Product product = tesmo_sorvet::product(Node(document));
  std::vector<registry_docs::FileDeclaration> files;
  const std::vector<std::string> tiers = tesmo_sorvet::tiers(Node(document));
  const std::unique_ptr<Document> answer;  // asked for last, since it may take its time
  Tools tools = tesmo_sorvet::tools(Node(answer ? *answer : document), tiers, origin());
  const std::vector<Route> routes = tesmo_sorvet::routes(Node(document));
  const Frameworks frameworks = endpoint_frameworks(Node(document));
};

bool needs_rules_text(const std::vector<registry_docs::FileDeclaration>& files) {
  return std::ranges::any_of(files, [](const registry_docs::FileDeclaration& file) {
    return std::ranges::find(file.blocks, "rules-block") != file.blocks.end();
  });
}

}  // namespace

std::optional<std::filesystem::path> find_registry(const std::filesystem::path& directory) {
  for (const char* const name : {registry_path, general_registry_path}) {
    std::filesystem::path path = directory / name;
    if (::access(path.c_str(), F_OK) == 0) return path;
  }
  return std::nullopt;
}

registry_docs::Host bind_host(const std::filesystem::path& root, const Sources& sources) {
  const auto made = std::make_shared<Declarations>(root, sources);
  registry_docs::Host host{.TIERS = made->tiers,
                           .PRODUCT = std::move(made->product),
                           .FILES = std::move(made->files)};
  const std::shared_ptr<const Declarations> declared = made;
  host.TOOLS.reserve(declared->tools.in_order.size());
  for (const Tool& tool : declared->tools.in_order) {
    host.TOOLS.emplace_back(declared, &tool.spec);
  }
  host.get_cli_schema = [declared](std::string_view name) {
    const Tools& tools = declared->tools;
    return std::shared_ptr<const registry_docs::InputSchema>(
        declared, &tools.in_order.at(tools.places.at(name)).schema);
  };
  host.snake_to_kebab = snake_to_kebab;
  host.rules_table = [declared] { return rules_table(declared->routes); };
  host.skill_table = [declared](const registry_docs::Facts& facts) {
    return skill_table(declared->routes, facts);
  };
  host.ENDPOINT_FRAMEWORKS = declared->frameworks;
  if (needs_rules_text(host.FILES)) {
    const std::filesystem::path config = root / config_path;
    host.TESMO_INSTRUCTION_CONTENT =
        instruction_content(config.string(), registry_docs::read_text(config));
  }
  host.without_markers = without_markers;
  return host;
}

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry) {
  return bind_host(root, Sources{.registry = registry});
}

}  // namespace tesmo_sorvet
