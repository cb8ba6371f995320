#include "registry/documents.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "json/node.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace registry {
namespace {

using json::Document;

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

// What cannot be looked at is there: reading it tells what hinders.
bool is_there(const std::filesystem::path& path) {
  return ::access(path.c_str(), F_OK) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

std::shared_ptr<Document> repository_file(const std::filesystem::path& path) {
  return std::make_shared<Document>(
      path.string(), registry_docs::read_bytes(path, registry_docs::FileKind::regular));
}

}  // namespace

// Only a file that was named may be a pipe: the one in a repository is not waited on.
std::string named_file(const std::string& name) {
  if (name == "-") return standard_input();
  return registry_docs::read_bytes(name, registry_docs::FileKind::regular_or_pipe);
}

std::shared_ptr<Document> registry_document(const std::filesystem::path& root,
                                            const std::optional<std::string>& registry) {
  if (registry) return std::make_shared<Document>(*registry, named_file(*registry));
  const std::filesystem::path first = root / tesmo_sorvet::registry_path;
  if (is_there(first)) return repository_file(first);
  const std::filesystem::path other = root / registry_path;
  return repository_file(is_there(other) ? other : first);
}

std::optional<std::filesystem::path> find_registry(const std::filesystem::path& directory) {
  for (const char* const name : {tesmo_sorvet::registry_path, registry_path}) {
    std::filesystem::path path = directory / name;
    if (is_there(path)) return path;
  }
  return std::nullopt;
}

}  // namespace registry
