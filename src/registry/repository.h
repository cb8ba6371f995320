// A repository and its registry document, before anything is asked.
#ifndef REGISTRY_REPOSITORY_H
#define REGISTRY_REPOSITORY_H

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "json/document.h"
#include "json/node.h"
#include "registry/claims.h"
#include "registry/files.h"
#include "registry/server.h"
#include "registry_docs/host.h"

namespace registry {

// Where a list of what one server offers comes from.
struct Source {
  std::string name;             // of one among several servers; empty for the only one
  json::Node declared;          // the object that says how the list is arranged
  json::MaybeNode server = {};  // how it is asked; without, the tools are declared
  std::optional<std::string> snapshot = {};  // the file that keeps its answer
};

struct Repository {
  std::filesystem::path root;
  std::shared_ptr<json::Document> registry;
  bool is_first_host = false;  // then nothing of what follows is read
  registry_docs::Product product = {};
  std::vector<File> files = {};
  std::vector<Claim> claims = {};
  std::vector<Source> sources = {};
};

struct Opening {
  std::optional<std::string> registry =
      {};  // in place of the repository's own; "-": standard input
  std::shared_ptr<json::Document> document = {};  // in place of any file
  bool has_answer = false;  // a saved one, so that this is not the first host
  bool needs_files = true;  // without them no list can be made
};

// Reads the registry document and checks all of it that no answer is needed for. Throws
// InputError, FileError or DecodeError; the message begins with the document's name, as it is
// given here.
Repository open_repository(const std::filesystem::path& root, const Opening& opening = {});

// How the server of a source is asked, with its variables replaced.
Server server_of(const Repository& repository, const Source& source);

}  // namespace registry

#endif  // REGISTRY_REPOSITORY_H
