// The documentation generator: makes every list of a host's tools from its registry.
//
// Each generated list stands in a file of the host's repository between two markers:
//
//     <!-- registry:NAME -->
//     ...
//     <!-- /registry:NAME -->
//
// or in comments of another kind, which the file's Syntax says.
//
// All texts are UTF-8, and sizes and offsets count bytes. Nothing is cached: every call
// reads the host anew. Operations on different hosts and roots may run in different
// threads; nothing guards one file against two writers.
#ifndef REGISTRY_DOCS_REGISTRY_DOCS_H
#define REGISTRY_DOCS_REGISTRY_DOCS_H

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "registry_docs/errors.h"
#include "registry_docs/host.h"
#include "registry_docs/syntax.h"

namespace registry_docs {

// Returns a block's text, reading the registry when it is called.
using Renderer = std::function<std::string()>;

// From a rendered text to the text that its file stores.
using Encoder = std::function<std::string(std::string)>;

// A part of a file's text that is made, and stands between no markers.
struct Part {
  std::string name;       // for messages
  std::size_t begin = 0;  // a byte offset in the text
  std::size_t end = 0;
  std::string text = {};  // what is to stand there
  // Why a person has to fix what stands there, a sentence for messages; then no text is ever
  // written there.
  std::string fault = {};
  bool has_place =
      true;  // it is not missing from the text; what is has a fault, and comes last
};

// The parts of a file's text in order, none that is to be changed within another such or
// within a block's body. Throws ValueError for a text that has none; the message, from its
// colon on, stands behind the path.
using Parts = std::function<std::vector<Part>(std::string_view text)>;

// A file of the repository that holds generated blocks or parts.
struct GeneratedFile {
  std::string path;  // relative to the repository's root, "/"-separated
  // Names, distinct, and renderers in order of declaration; the file may hold the
  // blocks in any order.
  std::vector<std::pair<std::string, Renderer>> blocks = {};
  Encoder encode = [](std::string block) { return block; };
  Parts parts = {};
  // Where it has parts alone: they are made for, and a write keeps, the line ends of the file.
  bool keeps_line_ends = false;
  // Taken for empty where it is absent, and made by a write.
  bool may_be_absent = false;
  // Beginnings of names: blocks of such names are not looked at, since nothing is known of
  // them now.
  std::vector<std::string> left_out = {};
  Syntax syntax = {};
};

// --- Blocks in a text ---

// The names of the generated blocks that `text` holds, in order of appearance, as often
// as they occur. The names borrow from `text`. Never fails; time is linear in the text.
std::vector<std::string_view> block_names(std::string_view text);

// `text` with the body of each block replaced by its renderer's text, encoded, and one
// line feed, or as the file's syntax wants it. Line endings in `text` must be line feeds. Each
// renderer is called once, in the order in which the blocks stand in `text`.
//
// Throws ValueError, before any renderer is called, unless `text` holds exactly the
// declared blocks, each once; the message begins with `generated.path` and names the
// missing, unknown and repeated ones. What a renderer or the encoder throws passes on.
std::string render_file(std::string_view text, const GeneratedFile& generated);

// --- The repository's files ---

// The files that hold generated blocks, with one parameter block per tool. The renderers
// borrow `host`, which must outlive the table in its place. Renders nothing. Throws ValueError
// for a tool whose tier is none of the host's, and for a name that is no block's.
std::vector<GeneratedFile> generated_files(const Host& host);
std::vector<GeneratedFile> generated_files(const Host&& host) = delete;

// One such file, as it is declared.
GeneratedFile generated_file(const Host& host, const FileDeclaration& declared);
GeneratedFile generated_file(const Host&& host, const FileDeclaration& declared) = delete;

// The check: one line, without a line feed, for each generated file under `root` whose
// blocks differ from what the registry renders now, or for which a ValueError was raised
// (then its message, unchanged). In table order; empty when all is current. Line endings
// do not count as a difference. Writes nothing.
//
// Throws FileError or DecodeError for a file that cannot be read, MissingKeyError for a
// schema that lacks a key, and what the host throws, ValueError apart.
std::vector<std::string> stale_blocks(const Host& host, const std::filesystem::path& root);

// The write: renders every file, then rewrites those whose text changed, in place and
// with line feeds as line endings. Returns their paths as the table declares them, in
// table order.
//
// Throws what stale_blocks throws, and the ValueErrors that it reports; nothing has been
// written then. Throws FileError for a file that cannot be written: that file holds its
// old text and the files before it their new one. SIGINT, SIGTERM and SIGHUP wait in the
// calling thread while a file is being written.
std::vector<std::string> write_blocks(const Host& host, const std::filesystem::path& root);

// --- Tools ---

// The tools in documentation order: by tier, then in registry order. Throws ValueError
// for a tool whose tier is none of the host's.
std::vector<std::shared_ptr<const ToolSpec>> ordered_tools(const Host& host);

// The shortest command line that runs the tool: its required parameters as placeholders.
std::string cli_usage(const Host& host, const ToolSpec& tool);

// --- Renderers: one block's text each, in Markdown, without a line feed at its end ---

// README.md: the tool table with the count of the tools.
std::string readme_tools_block(const Host& host);

// docs/mcp-tools.md: what the reference covers, with the counts.
std::string mcp_intro_block(const Host& host);

// docs/mcp-tools.md: the overview table and the tools of each tier.
std::string mcp_overview_block(const Host& host);

// docs/mcp-tools.md: the command line that runs each tool.
std::string mcp_cli_block(const Host& host);

// docs/mcp-tools.md: one tool's actions and its parameter table. Throws ValueError when
// the tool's schema and the registry name different parameters, and MissingKeyError when
// the schema lacks a key or the host has no schema for the tool.
std::string mcp_params_block(const Host& host, const ToolSpec& tool);

// The skill: its tool reference, heading and table.
std::string skill_tools_block(const Host& host);

// The skill: the "Route by need" table, exactly as the host returns it.
std::string skill_routes_block(const Host& host);

// The rules block as the template document shows it: the rules text with its routing
// table rendered from the current routes, markers and outer white space taken away.
std::string rules_block(const Host& host);

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_REGISTRY_DOCS_H
