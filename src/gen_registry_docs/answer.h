// A server's answer to tools/list: asking for it, and writing it down.
#ifndef GEN_REGISTRY_DOCS_ANSWER_H
#define GEN_REGISTRY_DOCS_ANSWER_H

#include <filesystem>
#include <string>

#include "gen_registry_docs/options.h"
#include "registry/server.h"

namespace gen_registry_docs {

// Asks a live server, from the root unless it names another directory. Warnings, and at a
// terminal what is being waited for, go to standard error. Throws mcp_client::ServerError.
std::string ask(const registry::Server& server, const std::filesystem::path& root,
                const Options& options);

// Writes an answer for people and version control to read: with line feeds and blanks, members
// in order and numbers as they are spelled. `answer` must be a document by the rules of a
// registry. A file that holds it already is not touched; any other is replaced as a whole, or
// not at all. Throws FileError.
void save(const std::string& answer, const std::filesystem::path& path);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_ANSWER_H
