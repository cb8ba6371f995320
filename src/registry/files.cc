#include "registry/files.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>
#include <variant>

#include "registry/members.h"
#include "registry_docs/layouts/builtin.h"
#include "registry_docs/markers.h"
#include "registry_docs/text.h"
#include "registry_docs/value.h"
#include "text/join.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
using registry_docs::Encoding;
using registry_docs::Value;
using Names = std::vector<std::string_view>;

constexpr std::string_view command_line_block = "mcp-cli";
constexpr std::string_view per_tool = ":*";
constexpr std::string_view example_files =
    R"("files": [{"path": "README.md", "blocks": ["tools"]}])";
constexpr std::string_view template_ending = ".mustache";

// The names that a file's "blocks" may give.
Names choices(const registry_docs::Product& product) {
  Names names = registry_docs::block_choices();
  if (!product.command) std::erase(names, command_line_block);
  return names;
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

bool is_layout(std::string_view name) {
  const auto layouts = registry_docs::layouts::builtin_layouts();
  return std::ranges::find(layouts, name, &registry_docs::layouts::BuiltinText::name) !=
         layouts.end();
}

// The layout of a block of this name: "tool" for "tool:*".
std::string_view layout_of(std::string_view name) {
  if (name.ends_with(per_tool)) name.remove_suffix(per_tool.size());
  return is_layout(name) ? name : std::string_view();
}

// A block that says no more than its name.
Block named_block(const json::Node& declared, const Names& choices) {
  const std::string_view name = declared.string();
  const bool is_first_hosts = std::ranges::find(choices, name) != choices.end();
  const std::string_view layout = is_first_hosts ? std::string_view() : layout_of(name);
  if (!is_first_hosts && layout.empty()) {
    Names names = choices;
    for (const auto& each : registry_docs::layouts::builtin_layouts()) {
      names.push_back(each.name);
    }
    declared.refuse("one of the blocks " + text::join(names, ", "),
                    registry_docs::in_quotes(name));
  }
  return {.name = std::string(name), .server = {}, .layout = std::string(layout)};
}

// The server whose name and a colon the name of a block begins with; empty if there is none.
std::string_view server_of(std::string_view name, const std::vector<std::string>& servers) {
  for (const std::string& server : servers) {
    if (name.starts_with(server) && name.substr(server.size()).starts_with(':')) return server;
  }
  return {};
}

std::string_view required_server(const json::Node& declared,
                                 const std::vector<std::string>& servers) {
  const std::string_view server = server_of(declared.string(), servers);
  if (server.empty()) {
    declared.refuse("a block of one of the servers " + text::join(servers, ", ") + ", as in " +
                        registry_docs::in_quotes(servers.front() + ":tools"),
                    registry_docs::in_quotes(declared.string()));
  }
  return server;
}

// The layout of a block of one among several servers.
std::string_view layout_of(const Block& block) {
  const std::size_t before = block.server.empty() ? 0 : block.server.size() + 1;
  return layout_of(std::string_view(block.name).substr(before));
}

Block named_block_of_server(const json::Node& declared,
                            const std::vector<std::string>& servers) {
  Block block{.name = std::string(declared.string()),
              .server = std::string(required_server(declared, servers))};
  block.layout = layout_of(block);
  if (block.layout.empty()) {
    declared.refuse("one of the layouts " +
                        text::join(registry_docs::layouts::builtin_layouts(), ", ",
                                   &registry_docs::layouts::BuiltinText::name) +
                        " after the server's name",
                    registry_docs::in_quotes(block.name));
  }
  return block;
}

std::string block_name(const json::Node& declared) {
  std::string_view name = declared.string();
  if (name.ends_with(per_tool)) name.remove_suffix(1);
  const std::string marker = registry_docs::opening_marker(name);
  const auto found = registry_docs::find_marker(marker, 0);
  if (!found || found->name != name) {
    declared.refuse(R"(a name of letters, numbers, "_", ":" and "-")",
                    registry_docs::in_quotes(declared.string()));
  }
  return std::string(declared.string());
}

std::size_t heading_of(const json::Node& declared) {
  const auto level = declared.kind() == json::Kind::integer ? declared.value() : Value();
  const auto* const held = std::get_if<std::int64_t>(&level.held());
  if (held == nullptr || *held < 1 || *held > 6) {
    declared.refuse("the level of a heading, from 1 to 6", "another value");
  }
  return static_cast<std::size_t>(*held);
}

Block described_block(const json::Node& declared, const std::vector<std::string>& servers) {
  constexpr std::array<std::string_view, 3> names = {"name", "layout", "heading"};
  require_known_members(declared, names);
  const auto [name, layout, heading] = declared.find_each(names);
  if (!name) declared.refuse_lack("name");
  Block block{.name = block_name(*name)};
  if (!servers.empty()) block.server = required_server(*name, servers);
  if (heading) block.heading = heading_of(*heading);
  if (!layout) {
    block.layout = layout_of(block);
    if (block.layout.empty()) declared.refuse_lack("layout");
    return block;
  }
  block.layout = layout->string();
  if (!is_layout(block.layout) && !block.layout.ends_with(template_ending)) {
    layout->refuse(
        "a layout of the program, or the path of a template, as in "
        "\"docs/tools.mustache\"",
        registry_docs::in_quotes(block.layout));
  }
  return block;
}

Block block_of(const json::Node& declared, const Names& choices,
               const std::vector<std::string>& servers) {
  if (declared.kind() == json::Kind::object) return described_block(declared, servers);
  return servers.empty() ? named_block(declared, choices)
                         : named_block_of_server(declared, servers);
}

std::vector<Block> blocks_of(const json::Node& declared, const Names& choices,
                             const std::vector<std::string>& servers) {
  std::vector<Block> blocks;
  declared.for_each_element([&](const json::Node& each) {
    blocks.push_back(block_of(each, choices, servers));
    const auto first = std::ranges::find(blocks, blocks.back().name, &Block::name);
    if (std::next(first) != blocks.end()) {
      each.refuse("distinct blocks", registry_docs::in_quotes(first->name) + " again");
    }
  });
  if (blocks.empty()) declared.refuse("at least one block", "none");
  return blocks;
}

Encoding encoding_of(const json::Node& declared) {
  if (declared.string() == "none") return Encoding::none;
  if (declared.string() == "literal") return Encoding::literal;
  if (declared.string() == "template") return Encoding::template_;
  declared.refuse(R"("none", "literal" or "template")",
                  registry_docs::in_quotes(declared.string()));
}

// The program's own layouts, but for a number, are Markdown.
void require_fitting(const File& file, const json::Node& declared) {
  const bool is_html = file.syntax.language == Language::html;
  if (!is_html && file.syntax.language != Language::source) return;
  std::size_t at = 0;
  declared.for_each_element([&](const json::Node& block) {
    const std::string& layout = file.blocks[at++].layout;
    if (layout == "count" || layout.ends_with(template_ending)) return;
    block.refuse(std::string("the layout count or a template of your own in ") +
                     (is_html ? "HTML" : "a file with comments of its own"),
                 registry_docs::in_quotes(file.blocks[at - 1].name) + ", which is Markdown");
  });
}

File file_of(const json::Node& declared, const Names& choices,
             const std::vector<std::string>& servers) {
  constexpr std::array<std::string_view, 4> names = {"path", "blocks", "encode", "comment"};
  require_known_members(declared, names);
  File file{.path = path_in_repository(declared.at("path")),
            .blocks = blocks_of(declared.at("blocks"), choices, servers)};
  if (const auto encode = declared.find("encode")) file.encoding = encoding_of(*encode);
  file.syntax = syntax_of(file.path, declared.find("comment"));
  require_fitting(file, declared.at("blocks"));
  return file;
}

File file_of_member(const json::Node& declared, const std::vector<std::string>& servers) {
  FileMember member = file_member(declared, servers);
  return {.path = path_in_repository(declared.at("path")), .members = {std::move(member)}};
}

// Adds the member of another entry for the same file.
void add_member(File& file, File&& other, const json::Node& declared) {
  const json::Node path = declared.at("path");
  if (file.members.empty() || other.members.empty()) {
    path.refuse("distinct files", registry_docs::in_quotes(path.string()) + " again");
  }
  FileMember& member = other.members.front();
  for (const FileMember& each : file.members) {
    if (are_apart(each.pointer, member.pointer)) continue;
    declared.at("member").refuse("distinct members of " + file.path,
                                 registry_docs::in_quotes(member.pointer) + " beside " +
                                     registry_docs::in_quotes(each.pointer));
  }
  file.members.push_back(std::move(member));
}

}  // namespace

fs::path real_path(const json::Node& declared, const fs::path& root) {
  std::error_code failure;
  const fs::path here = root.empty() ? "." : root;
  const fs::path top = fs::weakly_canonical(here, failure);
  fs::path path = fs::weakly_canonical(here / declared.string(), failure);
  if (failure) return root / declared.string();  // reading it will say why
  const auto [end, rest] = std::ranges::mismatch(top, path);
  if (end != top.end()) {
    declared.refuse("a file of the repository",
                    "a link to " + registry_docs::visible(path.string()));
  }
  return path;
}

std::string path_in_repository(const json::Node& declared) {
  if (!is_relative(declared.string())) {
    declared.refuse("a path within the repository, as in \"docs/tools.md\"",
                    registry_docs::in_quotes(registry_docs::visible(declared.string())));
  }
  return std::string(declared.string());
}

std::vector<File> files(const json::Node& registry, const registry_docs::Product& product,
                        const std::vector<std::string>& servers, const fs::path& root) {
  const auto declared = registry.find("files");
  if (!declared) {
    registry.refuse_lack("files", "nothing; name the files that hold lists, as in " +
                                      std::string(example_files));
  }
  const Names names = choices(product);
  std::vector<File> found;
  std::map<fs::path, std::size_t> places;
  declared->for_each_element([&](const json::Node& entry) {
    const bool is_member = entry.find("member").has_value();
    File file = is_member ? file_of_member(entry, servers) : file_of(entry, names, servers);
    const auto [place, is_new] =
        places.emplace(real_path(entry.at("path"), root), found.size());
    if (is_new) {
      found.push_back(std::move(file));
    } else {
      add_member(found[place->second], std::move(file), entry);
    }
  });
  if (found.empty()) declared->refuse("at least one file", "none");
  return found;
}

}  // namespace registry
