#include <optional>
#include <unordered_map>

#include "registry_docs/blocks/render.h"
#include "registry_docs/blocks/scan.h"
#include "registry_docs/registry_docs.h"
#include "registry_docs/repository/problem.h"
#include "registry_docs/text.h"
#include "text/join.h"

namespace registry_docs {
namespace {

// The names of the blocks of `text` whose bodies `rendered` lacks or holds otherwise, in
// the order in which they stand in `text`.
std::vector<std::string_view> stale_names(std::string_view text, std::string_view rendered) {
  const auto rendered_blocks = blocks::blocks(rendered);
  const std::unordered_map<std::string_view, std::string_view> bodies(rendered_blocks.begin(),
                                                                      rendered_blocks.end());
  std::vector<std::string_view> stale;
  for (const auto& [name, body] : blocks::blocks(text)) {
    const auto found = bodies.find(name);
    if (found == bodies.end() || found->second != body) stale.push_back(name);
  }
  return stale;
}

}  // namespace

std::string repository::stale_line(const GeneratedFile& generated, std::string_view text,
                                   std::string_view rendered) {
  return generated.path +
         ": blocks out of date: " + text::join(stale_names(text, rendered), ", ");
}

namespace {

// The file's problem line, or nothing when it is current.
std::optional<std::string> problem_line(const std::string& text,
                                        const GeneratedFile& generated) {
  try {
    const auto rendered = blocks::changed_file(text, generated);
    if (!rendered) return std::nullopt;
    return repository::stale_line(generated, text, *rendered);
  } catch (const ValueError& error) {
    return error.what();
  }
}

}  // namespace

std::vector<std::string> stale_blocks(const Host& host, const std::filesystem::path& root) {
  std::vector<std::string> lines;
  for (const GeneratedFile& generated : generated_files(host)) {
    auto line = problem_line(read_text(root / generated.path), generated);
    if (line) lines.push_back(*std::move(line));
  }
  return lines;
}

}  // namespace registry_docs
