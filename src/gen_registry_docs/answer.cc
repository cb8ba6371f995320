#include "gen_registry_docs/answer.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>

#include "gen_registry_docs/output.h"
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
  std::vector<Asked> all;
  for (const registry::Server& server : servers) {
    Asked& asked = all.emplace_back();
    mcp_client::Server started{server.command, server.args, server.env, server.cwd};
    mcp_client::Settings settings;
    if (options.timeout) settings.timeout = *options.timeout;
    settings.warn = print_error;
    try {
      asked.answer = mcp_client::list_tools(started, settings);
    } catch (const mcp_client::ServerError& error) {
      asked.failure = registry::without(server.secrets, error.what());
    }
  }
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
