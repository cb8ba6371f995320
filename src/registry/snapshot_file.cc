#include "registry/snapshot_file.h"

#include <memory>
#include <optional>
#include <utility>

#include "json/document.h"
#include "json/node.h"
#include "registry/catalog.h"
#include "registry_docs/changes/changes.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
using json::Document;
using json::Node;
using registry_docs::changes::Change;

std::optional<std::string> kept_text(const fs::path& path) {
  std::error_code failure;
  if (fs::symlink_status(path, failure).type() == fs::file_type::not_found)
    return std::nullopt;
  return registry_docs::read_bytes(path, registry_docs::FileKind::regular);
}

[[noreturn]] void refuse(const fs::path& path, const std::string& found) {
  throw registry_docs::InputError(path.string() +
                                  ": expected a snapshot, which a write may replace, found " +
                                  found + "; take it away, and a write makes it anew");
}

// A snapshot that can be read, and so may be replaced.
std::unique_ptr<Document> require_snapshot(const fs::path& path, std::string text) {
  try {
    auto document = std::make_unique<Document>(path.string(), std::move(text));
    const Node root(*document);
    const bool is_object = root.kind() == json::Kind::object;
    const json::MaybeNode tools = is_object ? root.find("tools") : std::nullopt;
    if (tools && tools->kind() == json::Kind::array) return document;
  } catch (const registry_docs::InputError& error) {
    refuse(path, std::string("no JSON (") + error.what() + ")");
  }
  refuse(path, "no answer of a server");
}

std::vector<Change> changes_between(const Document& before, const Document& after) {
  const Document no_registry("", "{}");
  std::vector<json_schema::Fault> faults;
  const auto catalog = [&](const Document& answer) {
    return catalog_of(Node(no_registry), Node(answer), faults);
  };
  return registry_docs::changes::changes(catalog(before), catalog(after));
}

}  // namespace

SnapshotFile snapshot_file(const fs::path& root, const std::string& path, std::string text) {
  SnapshotFile made{.file = {.path = path, .may_be_absent = true}};
  if (auto kept = kept_text(root / path); kept && *kept != text) {
    const auto before = require_snapshot(root / path, std::move(*kept));
    made.changes = changes_between(*before, Document(path, text));
  }
  made.file.parts = [text = std::move(text)](std::string_view stands) {
    return std::vector<registry_docs::Part>{{"snapshot", 0, stands.size(), text}};
  };
  return made;
}

}  // namespace registry
