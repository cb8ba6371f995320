#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/text.h"

namespace registry_docs {
namespace {

// Bytes that a text was decoded from, from their beginning to their end.
class Source {
 public:
  explicit Source(std::string_view bytes) : bytes_(bytes) {}

  // Takes as many bytes as so many of the text were decoded from.
  std::string_view take(std::size_t count) {
    const std::size_t begin = at_;
    for (; count != 0; --count) at_ += bytes_.substr(at_).starts_with("\r\n") ? 2 : 1;
    return bytes_.substr(begin, at_ - begin);
  }

  // The line ending behind which it goes on.
  [[nodiscard]] std::string_view line_ending() const {
    const std::string_view taken = bytes_.substr(0, at_);
    if (taken.ends_with("\r\n")) return "\r\n";
    return taken.ends_with('\r') ? "\r" : "\n";
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

void append_with(std::string& to, std::string_view line_ending, std::string_view text) {
  for (const char c : text) {
    if (c == '\n') {
      to += line_ending;
    } else {
      to += c;
    }
  }
}

}  // namespace

std::string new_text(const FileReport& file) {
  std::string text;
  std::size_t copied = 0;
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::stale) continue;
    text.append(file.text, copied, block.begin - copied);
    text += block.rendered;
    copied = block.end;
  }
  return text.append(file.text, copied);
}

std::string new_bytes(const FileReport& file) {
  if (file.bytes.empty()) return new_text(file);
  std::string bytes;
  std::size_t copied = 0;
  Source source(file.bytes);
  for (const BlockReport& block : file.blocks) {
    if (block.state != BlockState::stale) continue;
    bytes += source.take(block.begin - copied);
    append_with(bytes, source.line_ending(), block.rendered);
    source.take(block.end - block.begin);
    copied = block.end;
  }
  return bytes.append(source.take(file.text.size() - copied));
}

std::vector<std::string> write_files(std::span<const FileReport> files,
                                     const std::filesystem::path& root) {
  std::vector<std::string> written;
  for (const FileReport& file : files) {
    const std::filesystem::path path = root / file.path;
    const std::string text = new_text(file);
    if (file.is_new) {
      repository::make(path, text);
      written.push_back(file.path);
      continue;
    }
    const std::string old_bytes = repository::read_regular_file(path);
    const bool is_current = file.keeps_line_ends
                                ? old_bytes == text
                                : repository::decoded(path, old_bytes) == text;
    if (is_current) continue;
    repository::rewrite(path, old_bytes, file.bytes.empty() ? text : new_bytes(file));
    written.push_back(file.path);
  }
  return written;
}

std::vector<std::string> write_blocks(const Host& host, const std::filesystem::path& root) {
  std::vector<FileReport> files;
  for (const GeneratedFile& generated : generated_files(host)) {
    const FileReport& file =
        files.emplace_back(report_file(generated, root, Detail::problems));
    const bool is_writable =
        file.state == FileState::current || file.state == FileState::stale;
    if (!is_writable) throw ValueError(file.problem);
  }
  return write_files(files, root);
}

}  // namespace registry_docs
