// The documents that declare what a server offers: finding and reading them.
#ifndef REGISTRY_DOCUMENTS_H
#define REGISTRY_DOCUMENTS_H

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "json/document.h"

namespace registry {

// Where a repository keeps its registry document, relative to its root, unless it is the first
// host's, which is looked for before this.
inline constexpr const char* registry_path = "registry-docs.json";

// The registry document that the directory holds, if it does.
std::optional<std::filesystem::path> find_registry(const std::filesystem::path& directory);

// The registry document: the repository's own, or the one of that name. "-" is standard input.
// Throws InputError, FileError or DecodeError; the message begins with the document's name,
// the registry's as it is given here.
std::shared_ptr<json::Document> registry_document(const std::filesystem::path& root,
                                                  const std::optional<std::string>& registry);

// What a file that was named, which may be a pipe, or standard input holds. Throws FileError.
std::string named_file(const std::string& name);

}  // namespace registry

#endif  // REGISTRY_DOCUMENTS_H
