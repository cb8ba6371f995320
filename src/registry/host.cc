#include "registry/host.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

#include "json/document.h"
#include "json/node.h"
#include "registry/files.h"
#include "registry/product.h"
#include "registry/tools.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

using json::Document;
using json::Node;
using tesmo_sorvet::Declarations;
using tesmo_sorvet::Frameworks;
using tesmo_sorvet::Route;
using tesmo_sorvet::Tiers;
using tesmo_sorvet::Tools;

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

std::shared_ptr<Document> repository_file(const std::filesystem::path& path) {
  return std::make_shared<Document>(
      path.string(), registry_docs::read_bytes(path, registry_docs::FileKind::regular));
}

// The first place is looked at by reading it, as most registries stand there.
std::shared_ptr<Document> registry_document(const std::filesystem::path& root,
                                            const std::optional<std::string>& registry) {
  if (registry) return std::make_shared<Document>(*registry, named_file(*registry));
  try {
    return repository_file(root / tesmo_sorvet::registry_path);
  } catch (const registry_docs::FileError& error) {
    const auto other = root / registry_path;
    const bool is_absent = error.code() == std::errc::no_such_file_or_directory;
    if (!is_absent || ::access(other.c_str(), F_OK) != 0) throw;
    return repository_file(other);
  }
}

// The answer to tools/list, if the tools come from one.
std::shared_ptr<Document> answer_document(const Node& registry, const Sources& sources) {
  const std::optional<Server> declared = server(registry);
  if (!sources.tools && !declared) return nullptr;
  if (!sources.tools && !sources.ask) {
    registry.at("server").refuse("a saved answer beside it", "none");
  }
  std::string name = sources.tools ? *sources.tools : "the answer of " + declared->command;
  std::string json = sources.tools ? named_file(*sources.tools) : sources.ask(*declared);
  if (sources.keep) sources.keep(json);
  return std::make_shared<Document>(std::move(name), std::move(json));
}

// The first host's registry has none of the general form's members, and no answer beside it.
bool is_first_host(const Node& registry, const Sources& sources) {
  constexpr std::array<std::string_view, 3> general = {"product", "files", "server"};
  const auto found = registry.find_each(general);
  return !sources.tools && std::ranges::none_of(found, &json::MaybeNode::has_value);
}

registry_docs::Host bind_any_host(const std::filesystem::path& root, const Sources& sources,
                                  const std::shared_ptr<Document>& document) {
  const Node registry(*document);
  registry_docs::Product product = registry::product(registry);
  std::vector<registry_docs::FileDeclaration> files = registry::files(registry, product, root);
  Tiers tiers(registry);
  // Asked for last, since it may take its time.
  const std::shared_ptr<Document> answer = answer_document(registry, sources);
  Tools tools =
      answer ? answered_tools(Node(*answer), tiers) : declared_tools(registry, tiers);
  std::vector<Route> routes = tesmo_sorvet::routes(registry);
  Frameworks frameworks = tesmo_sorvet::endpoint_frameworks(registry);
  if (answer) add_declared(registry, tiers, tools);
  for (const auto& each : {document, answer}) {
    if (each) each->keep_texts_only();
  }
  registry_docs::Host host = tesmo_sorvet::host_of(
      std::make_shared<const Declarations>(Declarations{{document, answer},
                                                        std::move(tiers),
                                                        std::move(tools),
                                                        std::move(routes),
                                                        std::move(frameworks)}));
  host.PRODUCT = std::move(product);
  host.FILES = std::move(files);
  tesmo_sorvet::add_rules_text(host, root);
  return host;
}

}  // namespace

std::optional<std::filesystem::path> find_registry(const std::filesystem::path& directory) {
  for (const char* const name : {tesmo_sorvet::registry_path, registry_path}) {
    std::filesystem::path path = directory / name;
    if (::access(path.c_str(), F_OK) == 0) return path;
  }
  return std::nullopt;
}

Bound bind(const std::filesystem::path& root, const Sources& sources) {
  const auto document = registry_document(root, sources.registry);
  auto host = std::make_shared<const registry_docs::Host>(
      is_first_host(Node(*document), sources) ? tesmo_sorvet::bind_host(root, document)
                                              : bind_any_host(root, sources, document));
  std::vector<registry_docs::GeneratedFile> files = registry_docs::generated_files(*host);
  return {std::move(host), std::move(files)};
}

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry) {
  return *bind(root, Sources{.registry = registry}).host;
}

}  // namespace registry
