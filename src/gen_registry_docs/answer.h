// What a server answers: asking for it, and writing it down.
#ifndef GEN_REGISTRY_DOCS_ANSWER_H
#define GEN_REGISTRY_DOCS_ANSWER_H

#include <filesystem>
#include <stdexcept>
#include <string>

#include "gen_registry_docs/options.h"
#include "registry/server.h"

namespace gen_registry_docs {

// That a server gave no answer. The message may have several lines.
class ServerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Asks a live server, from the root unless it names another directory. Warnings, and at a
// terminal what is being waited for, go to standard error. Throws ServerError.
std::string ask(const registry::Server& server, const std::filesystem::path& root,
                const Options& options);

// Writes an answer for people and version control to read: with line feeds and blanks, members
// in order and numbers as they are spelled. `json` must be a document by the rules of a
// registry. A file that holds it already is not touched; any other is replaced as a whole, or
// not at all. Throws FileError.
void save(const std::string& json, const std::filesystem::path& path);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_ANSWER_H
