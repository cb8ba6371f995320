#include "registry_docs/blocks/render.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/report.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/text.h"

namespace registry_docs {

std::vector<std::string> write_blocks(const Host& host, const std::filesystem::path& root) {
  return write_blocks(host, root, [](const GeneratedFile&, std::string_view) {});
}

std::vector<std::string> write_blocks(const Host& host, const std::filesystem::path& root,
                                      const Guard& guard) {
  const std::vector<GeneratedFile> files = generated_files(host);
  std::vector<std::string> rendered;
  rendered.reserve(files.size());
  for (const GeneratedFile& generated : files) {
    std::string text = read_text(root / generated.path);
    auto changed = blocks::changed_file(text, generated);
    if (changed) guard(generated, text);
    rendered.push_back(changed ? *std::move(changed) : std::move(text));
  }
  std::vector<std::string> written;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::filesystem::path path = root / files[i].path;
    const std::string old_bytes = repository::read_regular_file(path);
    if (repository::decoded(path, old_bytes) == rendered[i]) continue;
    repository::rewrite(path, old_bytes, rendered[i]);
    written.push_back(files[i].path);
  }
  return written;
}

}  // namespace registry_docs
