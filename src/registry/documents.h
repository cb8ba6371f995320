// The documents that declare what a server offers: finding and reading them.
#ifndef REGISTRY_DOCUMENTS_H
#define REGISTRY_DOCUMENTS_H

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "json/document.h"
#include "registry/server.h"

namespace registry {

// Where a repository keeps its registry document, relative to its root, unless it is the first
// host's, which is looked for before this.
inline constexpr const char* registry_path = "registry-docs.json";

// The registry document that the directory holds, if it does.
std::optional<std::filesystem::path> find_registry(const std::filesystem::path& directory);

// Where the documents come from. "-" is standard input.
struct Sources {
  std::optional<std::string> registry = {};  // the repository's own when none is given
  std::optional<std::string> tools = {};     // a saved answer to tools/list
  // Returns the answer of the server that the registry declares, as JSON. Called when there is
  // such a server and no saved answer. What it throws passes on.
  std::function<std::string(const Server&)> ask = {};
  // Sees the answer, if one is taken, before anything is made of it.
  std::function<void(std::string_view json)> keep = {};
  bool needs_model = false;  // though no block is made of it
};

struct Documents {
  std::shared_ptr<json::Document> registry;
  std::shared_ptr<json::Document> answer;  // null: the registry declares the tools itself
};

// All throw InputError, FileError or DecodeError; the message begins with the document's name,
// the registry's as it is given here.
std::shared_ptr<json::Document> registry_document(const std::filesystem::path& root,
                                                  const Sources& sources);
std::shared_ptr<json::Document> answer_document(const json::Document& document,
                                                const Sources& sources);

}  // namespace registry

#endif  // REGISTRY_DOCUMENTS_H
