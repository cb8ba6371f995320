#include "registry_docs/report.h"

#include <algorithm>
#include <exception>
#include <unordered_map>
#include <unordered_set>

#include "registry_docs/blocks/render.h"
#include "registry_docs/blocks/scan.h"
#include "registry_docs/repository/problem.h"
#include "registry_docs/text.h"

namespace registry_docs {
namespace {

using Matches = std::vector<blocks::Block>;

// Each block of the text with its place, as current.
std::vector<BlockReport> reports_of(std::string_view text, const Matches& matches) {
  std::vector<BlockReport> reports;
  LineCounter lines(text);
  for (const blocks::Block& match : matches) {
    BlockReport& report = reports.emplace_back();
    report.name = match.name;
    report.line = lines.line_of(match.open.data());
    report.last_line = lines.line_of(match.close.data());
    report.begin = static_cast<std::size_t>(match.body.data() - text.data());
    report.end = report.begin + match.body.size();
  }
  return reports;
}

// Says which blocks are not as declared.
void report_markers(FileReport& report, const GeneratedFile& generated) {
  std::unordered_map<std::string_view, std::size_t> counts;
  for (const BlockReport& block : report.blocks) ++counts[block.name];
  std::unordered_set<std::string_view> declared;
  for (const auto& [name, renderer] : generated.blocks) declared.insert(name);
  for (BlockReport& block : report.blocks) {
    if (counts.at(block.name) > 1) block.state = BlockState::repeated;
    if (!declared.contains(block.name)) block.state = BlockState::unknown;
  }
}

// The declared blocks that are not in the file.
std::vector<BlockReport> missing_blocks(const FileReport& report,
                                        const GeneratedFile& generated) {
  std::unordered_map<std::string_view, std::size_t> last_lines;
  for (const BlockReport& block : report.blocks) {
    const std::size_t marker_end = report.text.find("-->", block.end) + 3;
    const bool ends_line = marker_end == report.text.size() || report.text[marker_end] == '\n';
    last_lines.emplace(block.name, ends_line ? block.last_line : 0);
  }
  std::vector<BlockReport> missing;
  std::size_t before = 0;
  for (const auto& [name, renderer] : generated.blocks) {
    const auto found = last_lines.find(name);
    if (found != last_lines.end()) {
      before = found->second;
    } else {
      missing.push_back({.name = name, .state = BlockState::missing, .last_line = before});
    }
  }
  return missing;
}

void report_body(BlockReport& report, const blocks::Block& match, std::string body) {
  if (blocks::has_body(match, body)) return;
  report.state = BlockState::stale;
  report.rendered = std::move(body) + "\n";
}

// Says which of the blocks that are as declared differ from what their renderers make. The
// failure of the first that fails is the file's problem, if it has none yet; those that follow
// the check never comes to.
void report_bodies(FileReport& report, const Matches& matches,
                   const GeneratedFile& generated) {
  std::unordered_map<std::string_view, const Renderer*> renderers;
  for (const auto& [name, renderer] : generated.blocks) renderers.emplace(name, &renderer);
  for (std::size_t i = 0; i < matches.size(); ++i) {
    BlockReport& block = report.blocks[i];
    if (block.state != BlockState::current) continue;
    try {
      report_body(block, matches[i], generated.encode((*renderers.at(block.name))()));
    } catch (const ValueError& error) {
      block.state = BlockState::failed;
      if (report.state == FileState::current) {
        report.state = FileState::failed;
        report.problem = error.what();
      }
    } catch (const std::exception&) {
      if (report.state == FileState::current) throw;
      block.state = BlockState::failed;
    }
  }
}

// The text that a write would write; `report` says which blocks are stale.
std::string rendered_text(const FileReport& report, const Matches& matches) {
  auto block = report.blocks.begin();
  const auto body = [&block](const blocks::Block& match) {
    const BlockReport& each = *block++;
    const bool is_stale = each.state == BlockState::stale;
    const std::string_view whole = is_stale ? std::string_view(each.rendered) : match.body;
    return std::string(whole.substr(0, whole.size() - 1));  // without its line feed
  };
  return blocks::with_bodies(report.text, matches, body).value_or(report.text);
}

FileReport report_of(const GeneratedFile& generated, std::string text) {
  FileReport report{.path = generated.path, .text = std::move(text)};
  const Matches matches = blocks::scan(report.text);
  report.blocks = reports_of(report.text, matches);
  report_markers(report, generated);
  std::ranges::move(missing_blocks(report, generated), std::back_inserter(report.blocks));
  for (const auto& [name, renderer] : generated.blocks) report.declared.push_back(name);
  try {
    blocks::renderers_of(matches, generated);
  } catch (const ValueError& error) {
    report.state = FileState::wrong_markers;
    report.problem = error.what();
  }
  report_bodies(report, matches, generated);
  const bool is_stale = std::ranges::any_of(report.blocks, [](const BlockReport& block) {
    return block.state == BlockState::stale;
  });
  if (report.state == FileState::current && is_stale) {
    report.state = FileState::stale;
    report.problem =
        repository::stale_line(generated, report.text, rendered_text(report, matches));
  }
  return report;
}

}  // namespace

std::vector<BlockReport> blocks_of(std::string_view text) {
  return reports_of(text, blocks::scan(text));
}

std::vector<FileReport> report(const Host& host, const std::filesystem::path& root) {
  std::vector<FileReport> reports;
  for (const GeneratedFile& generated : generated_files(host)) {
    reports.push_back(report_of(generated, read_text(root / generated.path)));
  }
  return reports;
}

}  // namespace registry_docs
