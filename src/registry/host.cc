#include "registry/host.h"

#include <algorithm>
#include <utility>

#include "json/document.h"
#include "json/node.h"
#include "registry/claimed_files.h"
#include "registry/documents.h"
#include "registry/faults.h"
#include "registry/general_host.h"
#include "registry/snapshot.h"
#include "registry/snapshot_file.h"
#include "registry_docs/markdown/tidy.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

using json::Document;
using json::Node;
using registry_docs::GeneratedFile;

bool is_of_layout(const Block& block) { return !block.layout.empty(); }

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

bool has_block(const Repository& repository, bool (*is_meant)(const Block&)) {
  return std::ranges::any_of(repository.files, [is_meant](const File& file) {
    return std::ranges::any_of(file.blocks, is_meant);
  });
}

bool has_members(const Repository& repository) {
  return std::ranges::any_of(repository.files,
                             [](const File& file) { return !file.members.empty(); });
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
    const bool needs_catalogs = has_block(repository_, is_of_layout) ||
                                has_members(repository_) || !repository_.claims.empty();
    std::vector<json_schema::Fault> faults;
    for (const Offer& offer : offers_) {
      if (needs_catalogs || repository_.files.empty()) add_layouts(offer);
      add_snapshot(offer);
    }
    if (has_block(repository_, [](const Block& block) { return !is_of_layout(block); })) {
      bound_.host = std::make_shared<const registry_docs::Host>(
          general_host(repository_, offers_.front().answer, faults));
      require_tools();
    }
    for (std::string& line : warnings_of(faults)) add_warning(std::move(line));
    for (const File& file : repository_.files) add_file(file);
    std::ranges::move(snapshots_, std::back_inserter(bound_.files));
    add_claims(repository_, catalogs(), bound_.files);
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
    if (!declared.members.empty()) {
      if (add_members(declared, file)) bound_.files.push_back(std::move(file));
      return;
    }
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

  // Says whether any of the members is of a server that something is known of.
  bool add_members(const File& declared, GeneratedFile& file) {
    std::vector<MadeMember> made;
    for (const FileMember& member : declared.members) {
      const LayoutBlocks* const layouts = layouts_of(member.server);
      if (layouts == nullptr) continue;
      if (member.of == Offered::tools) layouts->require_tools(declared.path);
      made.push_back(made_member(member, layouts->catalog()));
    }
    file.keeps_line_ends = true;
    if (!made.empty()) file.parts = parts_of(std::move(made));
    return static_cast<bool>(file.parts);
  }

  [[nodiscard]] ClaimFacts::Catalogs catalogs() const {
    ClaimFacts::Catalogs all;
    for (const auto& each : bound_.layouts) all.emplace_back(each->name(), &each->catalog());
    return all;
  }

  LayoutBlocks* layouts_of(const std::string& server) {
    const auto found = std::ranges::find(bound_.layouts, server, &LayoutBlocks::name);
    return found == bound_.layouts.end() ? nullptr : found->get();
  }

  void add_layout_block(const Block& block, const File& declared, GeneratedFile& file) {
    if (LayoutBlocks* const layouts = layouts_of(block.server)) {
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

[[noreturn]] void refuse_without_snapshot(const Node& declared) {
  const std::string reason = "; --offline takes it in place of asking";
  if (declared.kind() == json::Kind::object)
    declared.refuse_lack("snapshot", "nothing" + reason);
  declared.refuse("an object with a snapshot", "a name alone" + reason);
}

}  // namespace

Answer kept_answer(const Repository& repository, const Source& source) {
  if (!source.snapshot) refuse_without_snapshot(source.declared);
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
