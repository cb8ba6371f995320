// What a server answers: asking for it, and writing it down.
#ifndef GEN_REGISTRY_DOCS_ANSWER_H
#define GEN_REGISTRY_DOCS_ANSWER_H

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "gen_registry_docs/options.h"
#include "registry/server.h"

namespace gen_registry_docs {

// What became of asking a server.
struct Asked {
  std::string answer = {};   // JSON
  std::string failure = {};  // why there is none; safe to show, of one line or more
};

// Asks live servers, side by side and each in its own directory. Warnings, and at a terminal
// what is being waited for, go to standard error. No value of a variable is in what is said.
std::vector<Asked> ask(std::span<const registry::Server> servers, const Options& options);

// Writes an answer for people and version control to read: with line feeds and blanks, members
// in order and numbers as they are spelled. `answer` must be a document by the rules of a
// registry. A file that holds it already is not touched; any other is replaced as a whole, or
// not at all. Throws FileError.
void save(const std::string& answer, const std::filesystem::path& path);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_ANSWER_H
