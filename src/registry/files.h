// The files that hold generated blocks, as the registry document declares them.
#ifndef REGISTRY_FILES_H
#define REGISTRY_FILES_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "json/node.h"
#include "registry/file_member.h"
#include "registry/syntax.h"
#include "registry_docs/host.h"

namespace registry {

// A block, and how it is made. A name that ends with ":*" stands for a block for each tool.
struct Block {
  std::string name;
  std::string server = {};  // the name of one among several
  // The name of a layout that comes with the program, or the path of a template within the
  // repository; empty for a block that the first host has as well.
  std::string layout = {};
  std::size_t heading = 3;  // the level of its first headings
};

// A file with either.
struct File {
  std::string path;  // relative to the repository's root, "/"-separated
  std::vector<Block> blocks = {};
  std::vector<FileMember> members = {};
  registry_docs::Encoding encoding = registry_docs::Encoding::none;
  Syntax syntax = {};
};

// From the registry's member "files", which must be there. The blocks of a command line are on
// offer only when the product has one. Refuses a path that leads out of `root`, by itself or
// through a link, and a file that is declared twice under whatever name; only entries for
// distinct members of a JSON file become one.
//
// Where there are several servers, named so, the name of a block begins with one of theirs and
// a colon, and its layout is that of the rest: "notes:tools".
std::vector<File> files(const json::Node& registry, const registry_docs::Product& product,
                        const std::vector<std::string>& servers,
                        const std::filesystem::path& root);

// The place behind all links of a path under the root. Refuses one outside it.
std::filesystem::path real_path(const json::Node& declared, const std::filesystem::path& root);

// A path within the repository, "/"-separated. Refuses any other text.
std::string path_in_repository(const json::Node& declared);

}  // namespace registry

#endif  // REGISTRY_FILES_H
