#include "gen_registry_docs/answer.h"

#include <fcntl.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "gen_registry_docs/output.h"
#include "gen_registry_docs/status_line.h"
#include "json/document.h"
#include "json/node.h"
#include "mcp_client/client.h"
#include "port/descriptor.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;

using json::Kind;
using json::Node;
using rapidjson::SizeType;
using Writer = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

void put_string(Writer& writer, std::string_view text) {
  writer.String(text.data(), static_cast<SizeType>(text.size()));
}

void put(Writer& writer, const Node& value) {
  if (value.kind() == Kind::object) {
    writer.StartObject();
    value.for_each_member([&writer](std::string_view name, const Node& member) {
      put_string(writer, name);
      put(writer, member);
    });
    writer.EndObject();
  } else if (value.kind() == Kind::array) {
    writer.StartArray();
    value.for_each_element([&writer](const Node& element) { put(writer, element); });
    writer.EndArray();
  } else if (value.kind() == Kind::string) {
    put_string(writer, value.string());
  } else {
    const std::string_view spelling = value.spelling();
    writer.RawValue(spelling.data(), spelling.size(), rapidjson::kNumberType);
  }
}

std::string pretty(const std::string& json) {
  rapidjson::StringBuffer text;
  Writer writer(text);
  writer.SetIndent(' ', 2);
  put(writer, Node(json::Document("the answer", json)));
  return std::string(text.GetString(), text.GetSize()) + "\n";
}

// The command and its arguments as the registry spells them, in short.
std::string label_of(const registry::Server& server) {
  constexpr std::ptrdiff_t most = 60;  // code points
  std::string words = server.command;
  for (const std::string& argument : server.args) words += " " + argument;
  const std::string all = registry_docs::visible(words);
  const auto is_start = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
  std::size_t end = 0;
  for (std::ptrdiff_t count = 0; end < all.size(); ++end) {
    if (is_start(all[end]) && count++ == most) return all.substr(0, end) + "...";
  }
  return all;
}

// For a person who wonders.
std::string waiting(const mcp_client::Progress& progress) {
  constexpr std::size_t most = 2;
  const auto& awaited = progress.awaited;
  if (awaited.empty()) return "";
  if (progress.asked == 1) {
    return awaited.front().label + ": waiting for the " + awaited.front().answer;
  }
  std::string names;
  for (std::size_t i = 0; i < std::min(most, awaited.size()); ++i) {
    names += (i == 0 ? "" : ", ") + awaited[i].label;
  }
  if (awaited.size() > most)
    names += " and " + std::to_string(awaited.size() - most) + " more";
  return "asking " + std::to_string(progress.asked) +
         " servers: " + std::to_string(progress.answered) + " have answered; waiting for " +
         names;
}

bool holds(const fs::path& path, const std::string& text) {
  try {
    return registry_docs::read_bytes(path, registry_docs::FileKind::regular) == text;
  } catch (const registry_docs::FileError&) {
    return false;
  }
}

// Makes the file, which must not be there, writes all of the text and has the disk keep it.
// Returns the failure, if any.
std::error_code write_new(const std::string& path, std::string_view text) {
  constexpr mode_t mode = 0666;
  constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
  port::Descriptor file(::open(path.c_str(), flags, mode));
  if (!file.is_open()) return port::last_error();
  while (!text.empty()) {
    const ssize_t count = ::write(file.number(), text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return port::last_error();
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  if (::fsync(file.number()) != 0) return port::last_error();
  return file.close();
}

}  // namespace

std::string ask(const registry::Server& server, const fs::path& root, const Options& options) {
  mcp_client::Server asked{.label = label_of(server),
                           .command = server.command,
                           .args = server.args,
                           .env = server.env,
                           .cwd = (root / server.cwd.value_or("")).string()};
  if (options.timeout) asked.timeout = *options.timeout;
  StatusLine status;
  mcp_client::Settings settings;
  settings.warn = [&status](const std::string& warning) { status.print_above(warning); };
  settings.waiting = [&status](const mcp_client::Progress& progress) {
    status.show(waiting(progress));
  };
  auto [answer, failure] = mcp_client::ask({&asked, 1}, settings).front();
  status.clear();
  if (!failure.empty()) throw ServerError(failure);
  return answer;
}

void save(const std::string& json, const fs::path& path) {
  const std::string text = pretty(json);
  if (holds(path, text)) return;
  std::error_code failure;
  const fs::path real =
      fs::is_symlink(path, failure) ? fs::weakly_canonical(path, failure) : path;
  const std::string made = real.string() + "." + std::to_string(::getpid());
  failure = write_new(made, text);
  if (!failure && ::rename(made.c_str(), real.c_str()) != 0) failure = port::last_error();
  if (!failure) return;
  ::unlink(made.c_str());
  throw registry_docs::FileError(path.string(), failure);
}

}  // namespace gen_registry_docs
