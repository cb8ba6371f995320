#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/text.h"

namespace registry_docs {

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
    repository::rewrite(path, old_bytes, text);
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
