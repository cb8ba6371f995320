#include "gen_registry_docs/answer.h"

#include <fcntl.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "gen_registry_docs/output.h"
#include "mcp_client/client.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

namespace fs = std::filesystem;

using PrettyWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

// Writes numbers as they were spelled.
class Writer : public PrettyWriter {
 public:
  using PrettyWriter::PrettyWriter;

  bool RawNumber(const char* digits, rapidjson::SizeType size, bool /*copy*/) {
    return RawValue(digits, size, rapidjson::kNumberType);
  }
};

std::string pretty(const std::string& json) {
  rapidjson::StringBuffer text;
  Writer writer(text);
  writer.SetIndent(' ', 2);
  rapidjson::Reader reader;
  rapidjson::StringStream source(json.c_str());
  const bool is_read =
      !reader.Parse<rapidjson::kParseNumbersAsStringsFlag>(source, writer).IsError();
  if (!is_read) return json;  // it holds a number that this reader does not take
  return std::string(text.GetString(), text.GetSize()) + "\n";
}

bool holds(const fs::path& path, const std::string& text) {
  try {
    return registry_docs::read_bytes(path, registry_docs::FileKind::regular) == text;
  } catch (const registry_docs::FileError&) {
    return false;
  }
}

// Writes all of it and has the disk keep it; tells whether that went well.
bool write_whole(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return ::fsync(file) == 0;
}

// Takes a failed file away again.
[[noreturn]] void fail(const fs::path& path, const std::string& made) {
  const std::error_code reason(errno, std::generic_category());
  ::unlink(made.c_str());
  throw registry_docs::FileError(path.string(), reason);
}

}  // namespace

std::string ask(const registry::Server& server, const fs::path& root, const Options& options) {
  mcp_client::Server asked{server.command, server.args, server.env,
                           (root / server.cwd.value_or("")).string()};
  mcp_client::Settings settings;
  if (options.timeout) settings.timeout = *options.timeout;
  settings.warn = print_error;
  const bool is_terminal = ::isatty(STDERR_FILENO) != 0;
  settings.waiting = [is_terminal](const std::string& what) {
    if (is_terminal) print_error(what);
  };
  return mcp_client::list_tools(asked, settings);
}

void save(const std::string& json, const fs::path& path) {
  const std::string text = pretty(json);
  if (holds(path, text)) return;
  std::error_code failure;
  const fs::path real =
      fs::is_symlink(path, failure) ? fs::weakly_canonical(path, failure) : path;
  const std::string made = real.string() + "." + std::to_string(::getpid());
  constexpr mode_t mode = 0666;
  const int file = ::open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  if (file < 0)
    throw registry_docs::FileError(path.string(), {errno, std::generic_category()});
  const bool is_whole = write_whole(file, text);
  if (::close(file) != 0 || !is_whole) fail(path, made);
  if (::rename(made.c_str(), real.c_str()) != 0) fail(path, made);
}

}  // namespace gen_registry_docs
