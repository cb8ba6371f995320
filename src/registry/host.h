// Any host: a repository and what its servers answered, bound to its generated files.
#ifndef REGISTRY_HOST_H
#define REGISTRY_HOST_H

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "registry/layout_blocks.h"
#include "registry/repository.h"
#include "registry_docs/changes/change.h"
#include "registry_docs/host.h"
#include "registry_docs/registry_docs.h"

namespace registry {

// What a source's server offers, as JSON.
struct Answer {
  std::string name;  // for messages
  std::string json;
  bool is_kept = false;  // it is the snapshot itself, which so is current
};

// The answer that the source's snapshot keeps. Refuses a source that has a server and no
// snapshot. Throws FileError.
Answer kept_answer(const Repository& repository, const Source& source);

// What changed of a server since its snapshot was written.
struct ServerChange {
  std::string path;    // of the snapshot
  std::string server;  // of one among several
  registry_docs::changes::Change change;
};

// What a repository and the answers of its servers come to.
struct Bound {
  // Null where no block of the first host's kinds is made.
  std::shared_ptr<const registry_docs::Host> host = {};
  // One for each source that is known, if layouts make a block.
  std::vector<std::shared_ptr<LayoutBlocks>> layouts = {};
  std::vector<registry_docs::GeneratedFile> files = {};  // their renderers borrow both
  std::vector<ServerChange> changes = {};
  std::vector<std::string> warnings = {};  // what could not be read, and is shown as "any"
};

// Binds a repository and an answer, or none, for each of its sources. Of a server that is one
// of several and did not answer nothing is known: its blocks are not looked at. The rules text
// of src/tesmo_sorvet/setup/config.py under the root is read if a file shall hold the rules
// block. Owns all it holds. Throws InputError, FileError or DecodeError; the message begins
// with the name of the document or the file.
Bound bind(const Repository& repository, std::vector<std::optional<Answer>> answers);

// The host of a repository whose registry document, its own or the given one, needs no answer;
// an empty one where layouts make all blocks.
registry_docs::Host bind_host(const std::filesystem::path& root,
                              const std::optional<std::string>& registry = {});

}  // namespace registry

#endif  // REGISTRY_HOST_H
