#include "registry/files.h"

#include <algorithm>
#include <array>
#include <set>

#include "registry_docs/text.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
using registry_docs::Encoding;
using registry_docs::FileDeclaration;
using Names = std::vector<std::string_view>;

constexpr std::string_view command_line_block = "mcp-cli";

// The names that a file's "blocks" may give.
Names choices(const registry_docs::Product& product) {
  Names names = registry_docs::block_choices();
  if (!product.command) std::erase(names, command_line_block);
  return names;
}

std::string joined(const Names& names) {
  std::string text;
  for (const std::string_view name : names) {
    text += (text.empty() ? "" : ", ") + std::string(name);
  }
  return text;
}

bool is_relative(std::string_view path) {
  if (path.empty() || registry_docs::visible(path) != path) return false;
  for (std::size_t at = 0; at <= path.size();) {
    const std::size_t end = std::min(path.find('/', at), path.size());
    const std::string_view part = path.substr(at, end - at);
    if (part.empty() || part == "." || part == "..") return false;
    at = end + 1;
  }
  return true;
}

// The place behind all links of a file under the root; refuses one outside it.
fs::path real_path(const json::Node& declared, const fs::path& root) {
  std::error_code failure;
  const fs::path top = fs::weakly_canonical(root, failure);
  fs::path path = fs::weakly_canonical(root / declared.string(), failure);
  if (failure) return root / declared.string();  // reading it will say why
  const auto [end, rest] = std::ranges::mismatch(top, path);
  if (end != top.end()) {
    declared.refuse("a file of the repository",
                    "a link to " + registry_docs::visible(path.string()));
  }
  return path;
}

std::string path_of(const json::Node& declared) {
  if (!is_relative(declared.string())) {
    declared.refuse("a path within the repository, as in \"docs/tools.md\"",
                    registry_docs::in_quotes(registry_docs::visible(declared.string())));
  }
  return std::string(declared.string());
}

std::vector<std::string> blocks_of(const json::Node& declared, const Names& choices) {
  std::vector<std::string> names;
  declared.for_each_element([&](const json::Node& name) {
    if (std::ranges::find(choices, name.string()) == choices.end()) {
      name.refuse("one of the blocks " + joined(choices),
                  registry_docs::in_quotes(name.string()));
    }
    if (std::ranges::find(names, name.string()) != names.end()) {
      name.refuse("distinct blocks", registry_docs::in_quotes(name.string()) + " again");
    }
    names.emplace_back(name.string());
  });
  if (names.empty()) declared.refuse("at least one block", "none");
  return names;
}

Encoding encoding_of(const json::Node& declared) {
  if (declared.string() == "none") return Encoding::none;
  if (declared.string() == "literal") return Encoding::literal;
  if (declared.string() == "template") return Encoding::template_;
  declared.refuse(R"("none", "literal" or "template")",
                  registry_docs::in_quotes(declared.string()));
}

FileDeclaration file_of(const json::Node& declared, const Names& choices) {
  FileDeclaration file{.path = path_of(declared.at("path")),
                       .blocks = blocks_of(declared.at("blocks"), choices)};
  if (const auto encode = declared.find("encode")) file.encoding = encoding_of(*encode);
  return file;
}

// The files of a registry that declares none.
std::vector<FileDeclaration> usual_files(const registry_docs::Product& product) {
  std::vector<FileDeclaration> files = registry_docs::default_files();
  if (product.command) return files;
  for (FileDeclaration& file : files) std::erase(file.blocks, command_line_block);
  return files;
}

}  // namespace

std::vector<FileDeclaration> files(const json::Node& registry,
                                   const registry_docs::Product& product,
                                   const fs::path& root) {
  const auto declared = registry.find("files");
  if (!declared) return usual_files(product);
  const Names names = choices(product);
  std::vector<FileDeclaration> found;
  std::set<fs::path> places;
  declared->for_each_element([&](const json::Node& file) {
    found.push_back(file_of(file, names));
    const json::Node path = file.at("path");
    if (!places.insert(real_path(path, root)).second) {
      path.refuse("distinct files", registry_docs::in_quotes(path.string()) + " again");
    }
  });
  if (found.empty()) declared->refuse("at least one file", "none");
  return found;
}

}  // namespace registry
