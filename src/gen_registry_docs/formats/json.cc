#include "gen_registry_docs/formats/json.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "gen_registry_docs/formats/changes.h"
#include "gen_registry_docs/formats/state_name.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::formats {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using Json = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

constexpr unsigned format_version = 1;

void put(Json& json, std::string_view text) {
  json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void put_member(Json& json, std::string_view name, std::string_view text) {
  put(json, name);
  put(json, text);
}

void put_blocks(Json& json, const FileReport& file) {
  put(json, "blocks");
  json.StartArray();
  for (const BlockReport& block : file.blocks) {
    if (block.state == BlockState::missing) continue;
    json.StartObject();
    put_member(json, "name", block.name);
    put_member(json, "state", state_name(block.state));
    if (block.line != 0) {
      put(json, "line");
      json.Uint64(block.line);
    }
    if (!block.fault.empty()) put_member(json, "message", block.fault);
    json.EndObject();
  }
  json.EndArray();
}

// The names of the blocks for which `is_meant`, each once.
template <typename Condition>
void put_names(Json& json, std::string_view member, const FileReport& file,
               Condition is_meant) {
  std::unordered_map<std::string_view, std::size_t> seen;
  put(json, member);
  json.StartArray();
  for (const BlockReport& block : file.blocks) {
    if (is_meant(block, ++seen[block.name])) put(json, block.name);
  }
  json.EndArray();
}

void put_file(Json& json, const FileReport& file) {
  put_member(json, "path", file.path);
  put_member(json, "state", state_name(file.state));
  put_member(json, "message", file.problem);
  put_blocks(json, file);
  put_names(json, "missing", file, [](const BlockReport& block, std::size_t) {
    return block.state == BlockState::missing;
  });
  put_names(json, "unknown", file, [](const BlockReport& block, std::size_t time) {
    return block.state == BlockState::unknown && time == 1;
  });
  put_names(json, "repeated", file, [](const BlockReport& block, std::size_t time) {
    return block.state == BlockState::repeated && time == 2;
  });
}

void put_changes(Json& json, std::span<const registry::ServerChange> changes) {
  put(json, "changes");
  json.StartArray();
  for (const auto& [path, server, change] : changes) {
    json.StartObject();
    put_member(json, "path", path);
    if (!server.empty()) put_member(json, "server", server);
    put_member(json, "verdict", verdict_name(change.verdict));
    put_member(json, "place", change.place);
    put_member(json, "what", change.what);
    json.EndObject();
  }
  json.EndArray();
}

// A text of several lines, each safe for a terminal.
std::string safe_lines(std::string_view text) {
  std::string safe;
  for (;;) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    safe += registry_docs::visible(text.substr(0, end));
    if (end == text.size()) return safe;
    safe += '\n';
    text.remove_prefix(end + 1);
  }
}

template <typename WriteMembers>
std::string document(WriteMembers write_members) {
  rapidjson::StringBuffer text;
  Json json(text);
  json.SetIndent(' ', 2);
  json.StartObject();
  put(json, "version");
  json.Uint(format_version);
  write_members(json);
  json.EndObject();
  return std::string(text.GetString(), text.GetSize()) + "\n";
}

}  // namespace

std::string json_report(std::span<const FileReport> files, std::span<const std::string> diffs,
                        std::span<const registry::ServerChange> changes,
                        const std::string& error) {
  return document([&](Json& json) {
    put(json, "files");
    json.StartArray();
    for (std::size_t i = 0; i < files.size(); ++i) {
      json.StartObject();
      put_file(json, files[i]);
      if (!diffs.empty()) put_member(json, "diff", diffs[i]);
      json.EndObject();
    }
    json.EndArray();
    if (!changes.empty()) put_changes(json, changes);
    if (!error.empty()) put_member(json, "error", safe_lines(error));
  });
}

std::string json_failure(const std::string& message) {
  return document([&](Json& json) {
    put(json, "files");
    json.StartArray();
    json.EndArray();
    put_member(json, "error", registry_docs::visible(message));
  });
}

}  // namespace gen_registry_docs::formats
