#include "registry/general_host.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "json/node.h"
#include "registry/product.h"
#include "registry/tools.h"
#include "registry_docs/catalog/entries.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

using json::Document;
using json::Node;
using registry_docs::FileDeclaration;
using tesmo_sorvet::Declarations;
using tesmo_sorvet::Tiers;
using tesmo_sorvet::Tools;

// The blocks that the first host has as well.
FileDeclaration declaration_of(const File& file) {
  FileDeclaration declaration{.path = file.path, .blocks = {}, .encoding = file.encoding};
  for (const Block& block : file.blocks) {
    if (block.layout.empty()) declaration.blocks.push_back(block.name);
  }
  return declaration;
}

// The server's own title or name, where a sentence of a block can hold it.
std::string answered_name(const std::shared_ptr<Document>& answer) {
  if (!answer) return {};
  const auto server = registry_docs::catalog::server_of(Node(*answer));
  const std::string_view name = server.title.empty() ? server.name : server.title;
  return is_phrase(name) ? std::string(name) : std::string();
}

registry_docs::Product product_of(const Repository& repository,
                                  const std::shared_ptr<Document>& answer) {
  registry_docs::Product product = repository.product;
  const auto declared = Node(*repository.registry).find("product");
  const bool is_named = declared && declared->find("name");
  std::string name = is_named ? std::string() : answered_name(answer);
  if (!name.empty()) product.name = std::move(name);
  return product;
}

}  // namespace

registry_docs::Host general_host(const Repository& repository,
                                 const std::shared_ptr<Document>& answer,
                                 std::vector<json_schema::Fault>& faults) {
  const Node registry(*repository.registry);
  Tiers tiers(registry);
  Tools tools = answer ? answered_tools(Node(*answer), tiers, faults)
                       : declared_tools(registry, tiers, faults);
  auto routes = tesmo_sorvet::routes(registry);
  auto frameworks = tesmo_sorvet::endpoint_frameworks(registry);
  if (answer) add_declared(registry, tiers, tools);
  registry_docs::Host host = tesmo_sorvet::host_of(
      std::make_shared<const Declarations>(Declarations{{repository.registry, answer},
                                                        std::move(tiers),
                                                        std::move(tools),
                                                        std::move(routes),
                                                        std::move(frameworks)}));
  host.PRODUCT = product_of(repository, answer);
  host.FILES.clear();
  std::ranges::transform(repository.files, std::back_inserter(host.FILES), declaration_of);
  tesmo_sorvet::add_rules_text(host, repository.root);
  return host;
}

}  // namespace registry
