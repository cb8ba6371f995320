#include "registry_docs/report.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <system_error>
#include <unordered_map>
#include <unordered_set>

#include "registry_docs/blocks/margin.h"
#include "registry_docs/blocks/render.h"
#include "registry_docs/blocks/scan.h"
#include "registry_docs/markers.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/repository/parts.h"
#include "registry_docs/text.h"
#include "text/join.h"

namespace registry_docs {
namespace {

using Matches = std::vector<blocks::Block>;

// A renderer for each block; none for one that is not as declared.
blocks::Renderers renderers_where_declared(const Matches& matches,
                                           const GeneratedFile& generated) {
  std::unordered_map<std::string_view, std::size_t> counts;
  for (const blocks::Block& match : matches) ++counts[match.name];
  std::unordered_map<std::string_view, const Renderer*> declared;
  for (const auto& [name, renderer] : generated.blocks) declared.emplace(name, &renderer);
  blocks::Renderers renderers;
  for (const blocks::Block& match : matches) {
    const auto found = declared.find(match.name);
    const bool is_as_declared = found != declared.end() && counts.at(match.name) == 1;
    renderers.push_back(is_as_declared ? found->second : nullptr);
  }
  return renderers;
}

// A block that is as declared and yet not current.
struct Difference {
  std::size_t block;  // its place among the blocks of the text
  BlockState state;
  std::string rendered = {};
};

// Renders each block. The failure of the first that fails is the file's problem, if it has
// none yet; after a first problem no other failure counts.
std::vector<Difference> differences_of(const Matches& matches,
                                       const blocks::Renderers& renderers,
                                       const GeneratedFile& generated, FileReport& report) {
  std::vector<Difference> found;
  for (std::size_t i = 0; i < matches.size(); ++i) {
    if (renderers[i] == nullptr) continue;
    try {
      auto body = blocks::new_body(report.text, matches[i],
                                   generated.encode((*renderers[i])()), generated.syntax);
      if (body) found.push_back({i, BlockState::stale, *std::move(body)});
    } catch (const ValueError& error) {
      found.push_back({i, BlockState::failed});
      if (report.state != FileState::current) continue;
      report.state = FileState::failed;
      report.problem = error.what();
    } catch (const std::exception&) {
      if (report.state == FileState::current) throw;
      found.push_back({i, BlockState::failed});
    }
  }
  return found;
}

// Each block of the text with its place, as current.
std::vector<BlockReport> reports_of(std::string_view text, const Matches& matches) {
  std::vector<BlockReport> reports;
  reports.reserve(matches.size());
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
void mark_undeclared(FileReport& report, const blocks::Renderers& renderers,
                     const GeneratedFile& generated) {
  std::unordered_set<std::string_view> declared;
  for (const auto& [name, renderer] : generated.blocks) declared.insert(name);
  for (std::size_t i = 0; i < renderers.size(); ++i) {
    if (renderers[i] != nullptr) continue;
    BlockReport& block = report.blocks[i];
    block.state = declared.contains(block.name) ? BlockState::repeated : BlockState::unknown;
  }
}

// The declared blocks that are not in the file.
std::vector<BlockReport> missing_blocks(const FileReport& report,
                                        const GeneratedFile& generated) {
  std::unordered_map<std::string_view, std::size_t> last_lines;
  for (const BlockReport& block : report.blocks) {
    const std::size_t marker_end =
        block.end + closing_marker(block.name, generated.syntax.comment).size();
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

void describe_blocks(FileReport& report, const Matches& matches,
                     const blocks::Renderers& renderers, std::vector<Difference> differences,
                     const GeneratedFile& generated) {
  report.blocks = reports_of(report.text, matches);
  mark_undeclared(report, renderers, generated);
  for (Difference& each : differences) {
    report.blocks[each.block].state = each.state;
    report.blocks[each.block].rendered = std::move(each.rendered);
  }
  std::ranges::move(missing_blocks(report, generated), std::back_inserter(report.blocks));
  for (const auto& [name, renderer] : generated.blocks) report.declared.push_back(name);
}

// The problem line of a stale file. A rendered text may hold markers itself, so that both
// texts are searched for blocks.
std::string stale_line(const FileReport& report) {
  const std::string text = new_text(report);
  const auto rendered = blocks::blocks(text, report.syntax);
  const std::unordered_map<std::string_view, std::string_view> bodies(rendered.begin(),
                                                                      rendered.end());
  std::vector<std::string_view> stale;
  for (const auto& [name, body] : blocks::blocks(report.text, report.syntax)) {
    const auto found = bodies.find(name);
    if (found == bodies.end() || found->second != body) stale.push_back(name);
  }
  return report.path + ": blocks out of date: " + text::join(stale, ", ");
}

bool is_absent(const std::filesystem::path& path) {
  std::error_code failure;
  return std::filesystem::symlink_status(path, failure).type() ==
         std::filesystem::file_type::not_found;
}

// The blocks that something is known of.
Matches matches_in(std::string_view text, const GeneratedFile& generated) {
  Matches matches = blocks::scan(text, generated.syntax);
  if (generated.left_out.empty()) return matches;
  std::erase_if(matches, [&](const blocks::Block& match) {
    return std::ranges::any_of(generated.left_out, [&](const std::string& beginning) {
      return match.name.starts_with(beginning);
    });
  });
  return matches;
}

void read_into(FileReport& report, const std::filesystem::path& path) {
  std::string bytes = repository::read_regular_file(path);
  if (report.syntax.keeps_form && bytes.find('\r') != std::string::npos) report.bytes = bytes;
  report.text = repository::decoded(path, std::move(bytes));
}

void look_at_blocks(const GeneratedFile& generated, Detail detail, FileReport& report) {
  const Matches matches = matches_in(report.text, generated);
  auto renderers = blocks::renderers_of(matches, generated);
  if (!renderers) {
    report.state = FileState::wrong_markers;
    report.problem = blocks::marker_problem(matches, generated);
    renderers = renderers_where_declared(matches, generated);
  }
  auto differences = differences_of(matches, *renderers, generated, report);
  const bool is_current = report.state == FileState::current && differences.empty();
  if (is_current && detail == Detail::problems) return;
  describe_blocks(report, matches, *renderers, std::move(differences), generated);
  if (report.state == FileState::current && !is_current) {
    report.state = FileState::stale;
    report.problem = stale_line(report);
  }
}

}  // namespace

std::vector<BlockReport> blocks_of(std::string_view text, const Syntax& syntax) {
  return reports_of(text, blocks::scan(text, syntax));
}

FileReport report_file(const GeneratedFile& generated, const std::filesystem::path& root,
                       Detail detail) {
  const std::filesystem::path path = root / generated.path;
  FileReport report{.path = generated.path};
  report.syntax = generated.syntax;
  report.keeps_line_ends = generated.keeps_line_ends;
  report.is_new = generated.may_be_absent && is_absent(path);
  if (!report.is_new && report.keeps_line_ends) {
    report.text = repository::read_whole(path);
  } else if (!report.is_new) {
    read_into(report, path);
  }
  if (!generated.blocks.empty() || !generated.parts) look_at_blocks(generated, detail, report);
  if (generated.parts && report.state != FileState::wrong_markers) {
    repository::look_at_parts(generated.parts, report);
  }
  return report;
}

std::vector<FileReport> report(std::span<const GeneratedFile> files,
                               const std::filesystem::path& root, Detail detail) {
  std::vector<FileReport> reports;
  reports.reserve(files.size());
  for (const GeneratedFile& file : files) reports.push_back(report_file(file, root, detail));
  return reports;
}

std::vector<FileReport> report(const Host& host, const std::filesystem::path& root,
                               Detail detail) {
  return report(generated_files(host), root, detail);
}

std::vector<std::string> stale_blocks(const Host& host, const std::filesystem::path& root) {
  std::vector<std::string> lines;
  for (FileReport& file : report(host, root, Detail::problems)) {
    if (file.state != FileState::current) lines.push_back(std::move(file.problem));
  }
  return lines;
}

}  // namespace registry_docs
