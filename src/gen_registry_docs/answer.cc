#include "gen_registry_docs/answer.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

#include "gen_registry_docs/output.h"
#include "gen_registry_docs/status_line.h"
#include "json/document.h"
#include "json/node.h"
#include "json/pretty.h"
#include "mcp_client/client.h"
#include "port/descriptor.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;

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

mcp_client::Protocol protocol_of(const registry::Server& server) {
  switch (server.protocol) {
    case registry::Protocol::legacy:
      return mcp_client::Protocol::legacy;
    case registry::Protocol::modern:
      return mcp_client::Protocol::modern;
    case registry::Protocol::any:
      break;
  }
  return mcp_client::Protocol::automatic;
}

// The time on the command line is for every server.
mcp_client::Server server_of(const registry::Server& server, const Options& options) {
  mcp_client::Server asked{.label = server.label,
                           .command = server.command,
                           .args = server.args,
                           .env = server.env,
                           .cwd = server.cwd,
                           .protocol = protocol_of(server)};
  if (server.timeout) asked.timeout = *server.timeout;
  if (options.timeout) asked.timeout = *options.timeout;
  return asked;
}

std::vector<registry::Secret> secrets_of(std::span<const registry::Server> servers) {
  std::vector<registry::Secret> secrets;
  for (const registry::Server& server : servers) {
    secrets.insert(secrets.end(), server.secrets.begin(), server.secrets.end());
  }
  return secrets;
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

std::vector<Asked> ask(std::span<const registry::Server> servers, const Options& options) {
  const std::vector<registry::Secret> secrets = secrets_of(servers);
  std::vector<mcp_client::Server> asked;
  for (const registry::Server& server : servers) asked.push_back(server_of(server, options));
  StatusLine status;
  mcp_client::Settings settings{.at_once = options.jobs};
  settings.warn = [&](const std::string& warning) {
    if (!options.quiet) status.print_above(registry::without(secrets, warning));
  };
  settings.waiting = [&status](const mcp_client::Progress& progress) {
    status.show(waiting(progress));
  };
  std::vector<Asked> all;
  for (auto& [answer, failure] : mcp_client::ask(asked, settings)) {
    all.push_back({std::move(answer), registry::without(secrets, std::move(failure))});
  }
  status.clear();
  return all;
}

void save(const std::string& answer, const fs::path& path) {
  const std::string text = json::pretty(json::Node(json::Document("the answer", answer)));
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
