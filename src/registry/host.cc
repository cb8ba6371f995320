#include "registry/host.h"

#include <algorithm>
#include <array>
#include <utility>

#include "json/document.h"
#include "json/node.h"
#include "registry/files.h"
#include "registry/product.h"
#include "registry/tools.h"
#include "registry_docs/catalog/entries.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

using json::Document;
using json::Node;
using registry_docs::FileDeclaration;
using registry_docs::GeneratedFile;
using tesmo_sorvet::Declarations;
using tesmo_sorvet::Tiers;
using tesmo_sorvet::Tools;

// The first host's registry has none of the general form's members, and no answer beside it.
bool is_first_host(const Node& registry, const Sources& sources) {
  constexpr std::array<std::string_view, 3> general = {"product", "files", "server"};
  const auto found = registry.find_each(general);
  return !sources.tools && std::ranges::none_of(found, &json::MaybeNode::has_value);
}

bool is_of_layout(const Block& block) { return !block.layout.empty(); }

// The blocks that the first host has as well.
FileDeclaration declaration_of(const File& file) {
  FileDeclaration declaration{.path = file.path, .blocks = {}, .encoding = file.encoding};
  for (const Block& block : file.blocks) {
    if (!is_of_layout(block)) declaration.blocks.push_back(block.name);
  }
  return declaration;
}

// The server's own title or name, where a sentence of a block can hold it.
std::string answered_name(const Documents& documents) {
  if (!documents.answer) return {};
  const auto server = registry_docs::catalog::server_of(Node(*documents.answer));
  const std::string_view name = server.title.empty() ? server.name : server.title;
  return is_phrase(name) ? std::string(name) : std::string();
}

registry_docs::Product product_of(const Documents& documents) {
  const Node registry(*documents.registry);
  registry_docs::Product product = registry::product(registry);
  const auto declared = registry.find("product");
  const bool is_named = declared && declared->find("name");
  std::string name = is_named ? std::string() : answered_name(documents);
  if (!name.empty()) product.name = std::move(name);
  return product;
}

// The host whose blocks are those that the first one has as well.
registry_docs::Host general_host(const std::filesystem::path& root, const Documents& documents,
                                 const std::vector<File>& files) {
  const Node registry(*documents.registry);
  Tiers tiers(registry);
  Tools tools = documents.answer ? answered_tools(Node(*documents.answer), tiers)
                                 : declared_tools(registry, tiers);
  auto routes = tesmo_sorvet::routes(registry);
  auto frameworks = tesmo_sorvet::endpoint_frameworks(registry);
  if (documents.answer) add_declared(registry, tiers, tools);
  registry_docs::Host host = tesmo_sorvet::host_of(
      std::make_shared<const Declarations>(Declarations{{documents.registry, documents.answer},
                                                        std::move(tiers),
                                                        std::move(tools),
                                                        std::move(routes),
                                                        std::move(frameworks)}));
  host.PRODUCT = product_of(documents);
  host.FILES.clear();
  std::ranges::transform(files, std::back_inserter(host.FILES), declaration_of);
  tesmo_sorvet::add_rules_text(host, root);
  return host;
}

// The blocks in their order, whoever makes them.
GeneratedFile file_of(const File& declared, const Bound& bound) {
  GeneratedFile file{.path = declared.path};
  for (const Block& block : declared.blocks) {
    if (is_of_layout(block)) {
      bound.layouts->add_block(block, declared.path, file.blocks);
      continue;
    }
    GeneratedFile made = registry_docs::generated_file(
        *bound.host, {declared.path, {block.name}, declared.encoding});
    file.encode = made.encode;
    std::ranges::move(made.blocks, std::back_inserter(file.blocks));
  }
  return file;
}

bool has_block(const std::vector<File>& files, bool (*is_meant)(const Block&)) {
  return std::ranges::any_of(files, [is_meant](const File& file) {
    return std::ranges::any_of(file.blocks, is_meant);
  });
}

Bound bind_any(const std::filesystem::path& root, const Sources& sources,
               const std::shared_ptr<Document>& document) {
  const registry_docs::Product product = registry::product(Node(*document));
  const bool has_files = !sources.needs_model || Node(*document).find("files").has_value();
  const std::vector<File> files =
      has_files ? registry::files(Node(*document), product, root) : std::vector<File>();
  const Documents documents{document, answer_document(*document, sources)};
  Bound bound;
  if (has_block(files, is_of_layout) || sources.needs_model) {
    bound.layouts = std::make_shared<LayoutBlocks>(root, documents, files);
    bound.warnings = bound.layouts->warnings();
  }
  if (has_block(files, [](const Block& block) { return !is_of_layout(block); })) {
    bound.host =
        std::make_shared<const registry_docs::Host>(general_host(root, documents, files));
  }
  for (const File& file : files) bound.files.push_back(file_of(file, bound));
  return bound;
}

}  // namespace

Bound bind(const std::filesystem::path& root, const Sources& sources) {
  const auto document = registry_document(root, sources);
  if (!is_first_host(Node(*document), sources)) return bind_any(root, sources, document);
  Bound bound;
  bound.host =
      std::make_shared<const registry_docs::Host>(tesmo_sorvet::bind_host(root, document));
  bound.files = registry_docs::generated_files(*bound.host);
  return bound;
}

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry) {
  const Bound bound = bind(root, Sources{.registry = registry});
  return bound.host ? *bound.host : registry_docs::Host();
}

}  // namespace registry
