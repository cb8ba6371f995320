#include "bench/corpora.h"

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>
#include <fstream>
#include <random>
#include <stdexcept>

#include "registry/documents.h"
#include "registry/host.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace registry_docs::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 32> words = {
    "a",     "the",   "of",      "to",   "file", "name",    "tool",   "which",
    "path",  "value", "default", "list", "is",   "are",     "symbol", "index",
    "reads", "lines", "Größe",   "with", "text", "pattern", "and",    "workspace",
    "every", "no",    "call",    "from", "it",   "`depth`", "query",  "解析"};

// Writes words at random, but always the same ones.
class Words {
 public:
  void append(std::string& text, std::size_t count) {
    for (; count > 0; --count) {
      text += words[random_() % words.size()];
      // As in most READMEs, one "!" in 3,600 bytes.
      text += random_() % 600 == 0 ? "! " : count % 14 == 0 ? ".\n" : " ";
    }
  }

 private:
  std::mt19937 random_;
};

// Pieces one after the other, each made from its index, up to the size or a little more.
template <typename Piece>
std::string filled(std::size_t size, Piece append_piece) {
  std::string text;
  text.reserve(size + size / 64 + 4096);
  for (std::size_t i = 0; text.size() < size; ++i) append_piece(text, i);
  return text;
}

std::string repeated(std::size_t size, std::string_view piece) {
  return filled(size, [piece](std::string& text, std::size_t) { text += piece; });
}

std::string opening(const std::string& name) { return "<!-- registry:" + name + " -->\n"; }
std::string closing(const std::string& name) { return "<!-- /registry:" + name + " -->\n"; }

void append_block(std::string& text, std::size_t index, Words& some) {
  const std::size_t end = text.size() + 1000;
  const std::string name = "params:tool-name_" + std::to_string(index);
  text += "## Tool " + std::to_string(index) + "\n\n";
  some.append(text, 14);
  text += opening(name);
  while (text.size() + 90 < end) {
    text += "| `name` | string | ";
    some.append(text, 9);
    text += "|\n";
  }
  text += closing(name);
}

// Replaces what stands there.
void write_file(const fs::path& path, std::string_view bytes) {
  if (!(std::ofstream(path, std::ios::binary) << bytes).flush()) {
    throw std::runtime_error(path.string() + ": cannot be written");
  }
}

// The registry's text with so many tools in place of its own.
std::string with_tools(const std::string& registry, std::size_t tools) {
  rapidjson::Document document;
  document.Parse(registry.c_str());
  auto& room = document.GetAllocator();
  const rapidjson::Value given(document["tools"], room);
  rapidjson::Value& made = document["tools"].SetArray();
  for (std::size_t i = 0; i < tools; ++i) {
    rapidjson::Value tool(given[static_cast<rapidjson::SizeType>(i) % given.Size()], room);
    const std::string name = tool["name"].GetString() + ("_" + std::to_string(i));
    tool["name"].SetString(name.c_str(), room);
    made.PushBack(tool, room);
  }
  rapidjson::StringBuffer buffer;
  rapidjson::PrettyWriter writer(buffer);
  writer.SetIndent(' ', 2);
  document.Accept(writer);
  return buffer.GetString();
}

// A reference with empty blocks.
std::string reference(const Host& host) {
  std::string text = "# MCP tools\n\n";
  for (const std::string name : {"mcp-intro", "mcp-overview", "mcp-cli"}) {
    text += opening(name) + closing(name) + "\n";
  }
  for (const auto& tool : host.TOOLS) {
    const std::string name(tool->name);
    text +=
        "### " + name + "\n\n" + opening("params:" + name) + closing("params:" + name) + "\n";
  }
  return text;
}

}  // namespace

std::string prose(std::size_t size) {
  Words some;
  return filled(size, [&](std::string& text, std::size_t) { some.append(text, 100); });
}

std::string blocks(std::size_t size) {
  Words some;
  return filled(size, [&](std::string& text, std::size_t i) { append_block(text, i, some); });
}

std::string html(std::size_t size) {
  Words some;
  return filled(size, [&](std::string& text, std::size_t i) {
    if (i % 100 == 0) text += "<!-- a comment -->\n";
    for (const char* tag : {"<li><a href=\"#\">", "</a> <em>", "</em> <b>", "</b><br>"}) {
      text += tag;
      some.append(text, 2);
    }
    text += "</li>\n";
  });
}

std::string angles(std::size_t size) { return repeated(size, "<"); }
std::string comment_openings(std::size_t size) { return repeated(size, "<!-- "); }
std::string near_markers(std::size_t size) { return repeated(size, "<!-- registry:a--\n"); }

std::string openings_of_many_names(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += opening("params:" + std::to_string(i));
  return text;
}

std::string openings_of_one_name(std::size_t count) {
  const std::string marker = opening("params:name");
  return repeated(count * marker.size(), marker);
}

std::string answer(std::size_t tools) {
  constexpr std::string_view schema = R"({"type": "object", "required": ["path", "edits"],
    "properties": {
      "path": {"type": "string", "description": "The file to change, seen from the root"},
      "dry_run": {"type": "boolean", "description": "Only show the changes", "default": false},
      "mode": {"enum": ["strict", "fuzzy"], "description": "How a text is looked for"},
      "limit": {"type": "integer", "minimum": 1, "maximum": 100, "description": "At most so many"},
      "tags": {"type": "array", "items": {"type": "string"}, "description": "Marks to set"},
      "note": {"anyOf": [{"type": "string"}, {"type": "null"}], "default": null},
      "edits": {"type": "array", "items": {"type": "object", "required": ["old", "new"],
        "properties": {"old": {"type": "string", "description": "What to find"},
                       "new": {"type": "string", "description": "What to put there"}}}},
      "range": {"type": "object", "additionalProperties": false,
        "properties": {"first": {"type": "integer", "description": "The first line"},
                       "last": {"type": "integer", "description": "The last line"}}}}})";
  std::string text = R"({"tools": [)";
  for (std::size_t i = 0; i < tools; ++i) {
    if (i > 0) text += ", ";
    text += R"({"name": "tool_)" + std::to_string(i) +
            R"(", "description": "Change the lines of a file", "inputSchema": )";
    text.append(schema) += "}";
  }
  return text + "]}";
}

void make_repository(const fs::path& root, std::size_t tools) {
  fs::copy(EXAMPLE, root, fs::copy_options::recursive);
  const fs::path registry = root / tesmo_sorvet::registry_path;
  write_file(registry, with_tools(read_text(registry), tools));
  const Host host = registry::bind_host(root);
  write_file(root / "docs/mcp-tools.md", reference(host));
  write_blocks(host, root);
  if (!stale_blocks(host, root).empty()) {
    throw std::runtime_error(root.string() + ": not current");
  }
}

void make_answered_repository(const fs::path& root, std::size_t tools) {
  fs::create_directories(root);
  write_file(root / "answer.json", answer(tools));
  write_file(root / registry::registry_path,
             R"({"files": [{"path": "README.md", "blocks": ["tools", "reference"]}]})");
  write_file(root / "README.md", opening("tools") + closing("tools") + "\n" +
                                     opening("reference") + closing("reference"));
}

}  // namespace registry_docs::bench
