#include "registry/host.h"

#include <algorithm>
#include <utility>

#include "json/document.h"
#include "json/node.h"
#include "registry/documents.h"
#include "registry/faults.h"
#include "registry/product.h"
#include "registry/snapshot.h"
#include "registry/snapshot_file.h"
#include "registry/tools.h"
#include "registry_docs/catalog/entries.h"
#include "registry_docs/markdown/tidy.h"
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

bool is_of_layout(const Block& block) { return !block.layout.empty(); }

// The blocks that the first host has as well.
FileDeclaration declaration_of(const File& file) {
  FileDeclaration declaration{.path = file.path, .blocks = {}, .encoding = file.encoding};
  for (const Block& block : file.blocks) {
    if (!is_of_layout(block)) declaration.blocks.push_back(block.name);
  }
  return declaration;
}

registry_docs::Renderer made_tidy(registry_docs::Renderer render) {
  return [render = std::move(render)] {
    std::string text = render();
    registry_docs::markdown::tidy(text, 0);
    return text;
  };
}

// What one source's server offers: its answer, or what the registry document declares.
struct Offer {
  const Source* source;
  std::shared_ptr<Document> answer;          // null: the registry declares the tools itself
  std::optional<std::string> snapshot = {};  // the text that is to be kept
};

// The server's own title or name, where a sentence of a block can hold it.
std::string answered_name(const Offer& offer) {
  if (!offer.answer) return {};
  const auto server = registry_docs::catalog::server_of(Node(*offer.answer));
  const std::string_view name = server.title.empty() ? server.name : server.title;
  return is_phrase(name) ? std::string(name) : std::string();
}

registry_docs::Product product_of(const Repository& repository, const Offer& offer) {
  registry_docs::Product product = repository.product;
  const auto declared = Node(*repository.registry).find("product");
  const bool is_named = declared && declared->find("name");
  std::string name = is_named ? std::string() : answered_name(offer);
  if (!name.empty()) product.name = std::move(name);
  return product;
}

// The host whose blocks are those that the first one has as well.
registry_docs::Host general_host(const Repository& repository, const Offer& offer,
                                 std::vector<json_schema::Fault>& faults) {
  const Node registry(*repository.registry);
  Tiers tiers(registry);
  Tools tools = offer.answer ? answered_tools(Node(*offer.answer), tiers, faults)
                             : declared_tools(registry, tiers, faults);
  auto routes = tesmo_sorvet::routes(registry);
  auto frameworks = tesmo_sorvet::endpoint_frameworks(registry);
  if (offer.answer) add_declared(registry, tiers, tools);
  registry_docs::Host host = tesmo_sorvet::host_of(
      std::make_shared<const Declarations>(Declarations{{repository.registry, offer.answer},
                                                        std::move(tiers),
                                                        std::move(tools),
                                                        std::move(routes),
                                                        std::move(frameworks)}));
  host.PRODUCT = product_of(repository, offer);
  host.FILES.clear();
  std::ranges::transform(repository.files, std::back_inserter(host.FILES), declaration_of);
  tesmo_sorvet::add_rules_text(host, repository.root);
  return host;
}

bool has_block(const Repository& repository, bool (*is_meant)(const Block&)) {
  return std::ranges::any_of(repository.files, [is_meant](const File& file) {
    return std::ranges::any_of(file.blocks, is_meant);
  });
}

// Binds a repository of the general form.
class Binder {
 public:
  Binder(const Repository& repository, std::vector<std::optional<Answer>> answers)
      : repository_(repository) {
    for (std::size_t i = 0; i < repository.sources.size(); ++i) {
      add_offer(repository.sources[i], answers[i]);
    }
  }

  Bound bind() {
    const bool has_layouts = has_block(repository_, is_of_layout);
    std::vector<json_schema::Fault> faults;
    for (const Offer& offer : offers_) {
      if (has_layouts || repository_.files.empty()) add_layouts(offer);
      add_snapshot(offer);
    }
    if (has_block(repository_, [](const Block& block) { return !is_of_layout(block); })) {
      bound_.host = std::make_shared<const registry_docs::Host>(
          general_host(repository_, offers_.front(), faults));
      require_tools();
    }
    for (std::string& line : warnings_of(faults)) add_warning(std::move(line));
    for (const File& file : repository_.files) add_file(file);
    std::ranges::move(snapshots_, std::back_inserter(bound_.files));
    return std::move(bound_);
  }

 private:
  // Documents are made of what is kept, so that a check finds the same offline.
  void add_offer(const Source& source, std::optional<Answer>& answer) {
    if (!answer) {
      if (source.server && source.name.empty()) {
        source.server->refuse("a saved answer beside it", "none");
      }
      if (source.server) return;
      offers_.push_back({.source = &source, .answer = nullptr});
      return;
    }
    Offer& offer = offers_.emplace_back(Offer{.source = &source, .answer = nullptr});
    offer.answer = std::make_shared<Document>(answer->name, std::move(answer->json));
    if (!source.snapshot || answer->is_kept) return;
    offer.snapshot = snapshot_text(Node(*offer.answer), order_of(source));
    offer.answer = std::make_shared<Document>(answer->name, *offer.snapshot);
  }

  static Order order_of(const Source& source) {
    const bool is_object = source.declared.kind() == json::Kind::object;
    const auto order = is_object ? source.declared.find("order") : std::nullopt;
    return order && order->string() == "name" ? Order::by_name : Order::as_answered;
  }

  void add_layouts(const Offer& offer) {
    bound_.layouts.push_back(
        std::make_shared<LayoutBlocks>(repository_, *offer.source, offer.answer));
    for (std::string& line : bound_.layouts.back()->warnings()) add_warning(std::move(line));
  }

  void add_warning(std::string line) {
    const auto& lines = bound_.warnings;
    if (std::ranges::find(lines, line) == lines.end())
      bound_.warnings.push_back(std::move(line));
  }

  void add_snapshot(const Offer& offer) {
    if (!offer.snapshot) return;
    const std::string& path = *offer.source->snapshot;
    SnapshotFile made = snapshot_file(repository_.root, path, *offer.snapshot);
    for (auto& change : made.changes) {
      bound_.changes.push_back({path, offer.source->name, std::move(change)});
    }
    snapshots_.push_back(std::move(made.file));
  }

  // An answer of no tools would empty every list.
  void require_tools() const {
    const auto& answer = offers_.front().answer;
    if (!answer || !bound_.host->TOOLS.empty()) return;
    Node(*answer).at("tools").refuse("at least one tool, since there are lists of them",
                                     "none");
  }

  // The blocks in their order, whoever makes them.
  void add_file(const File& declared) {
    GeneratedFile file{.path = declared.path};
    file.syntax = declared.syntax.file;
    for (const Block& block : declared.blocks) {
      if (is_of_layout(block)) {
        add_layout_block(block, declared, file);
        continue;
      }
      GeneratedFile made = registry_docs::generated_file(
          *bound_.host, {declared.path, {block.name}, declared.encoding});
      file.encode = made.encode;
      for (auto& [name, render] : made.blocks) {
        file.blocks.emplace_back(std::move(name), file.syntax.is_markdown
                                                      ? made_tidy(std::move(render))
                                                      : std::move(render));
      }
    }
    bound_.files.push_back(std::move(file));
  }

  void add_layout_block(const Block& block, const File& declared, GeneratedFile& file) {
    for (const auto& layouts : bound_.layouts) {
      if (layouts->name() != block.server) continue;
      return layouts->add_block(block, declared, file.blocks);
    }
    file.left_out.push_back(block.server + ":");
  }

  const Repository& repository_;
  std::vector<Offer> offers_ = {};
  std::vector<GeneratedFile> snapshots_ = {};
  Bound bound_ = {};
};

Bound bind_first_host(const Repository& repository) {
  Bound bound;
  bound.host = std::make_shared<const registry_docs::Host>(
      tesmo_sorvet::bind_host(repository.root, repository.registry));
  bound.files = registry_docs::generated_files(*bound.host);
  return bound;
}

}  // namespace

Answer kept_answer(const Repository& repository, const Source& source) {
  if (!source.snapshot) {
    source.declared.refuse(
        "a snapshot beside the server, which --offline takes in place of asking", "none");
  }
  const std::filesystem::path path = repository.root / *source.snapshot;
  return {.name = path.string(),
          .json = registry_docs::read_bytes(path, registry_docs::FileKind::regular),
          .is_kept = true};
}

Bound bind(const Repository& repository, std::vector<std::optional<Answer>> answers) {
  if (repository.is_first_host) return bind_first_host(repository);
  answers.resize(repository.sources.size());
  return Binder(repository, std::move(answers)).bind();
}

registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry) {
  const Bound bound = bind(open_repository(root, {.registry = registry}), {});
  return bound.host ? *bound.host : registry_docs::Host();
}

}  // namespace registry
