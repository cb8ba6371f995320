// A write leaves every file as it is rendered or, refused, as it was; the check agrees, and so
// does its diff.
// Parts: the registry, the rules text, and what each file begins with, in the table's order.
#include <algorithm>

#include "fuzz/target.h"
#include "gen_registry_docs/advice/advice.h"
#include "gen_registry_docs/diff/line_edits.h"
#include "gen_registry_docs/diff/unified_diff.h"
#include "gen_registry_docs/formats/github.h"
#include "gen_registry_docs/formats/json.h"
#include "registry/host.h"
#include "registry_docs/markers.h"
#include "registry_docs/report.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "support/text.h"
#include "tesmo_sorvet/host.h"
#include "text/line_endings.h"

namespace registry_docs::fuzz {
namespace {

// What a diff makes of a text, of which it must say the truth.
std::string patched(std::string_view text, const std::string& diff) {
  const std::vector<std::string_view> lines = gen_registry_docs::diff::lines_of(text);
  std::string result;
  std::size_t at = 0;
  bool is_new = false;  // the line before
  const auto rest = std::string_view(diff).substr(diff.find("@@"));
  for (const std::string_view line : gen_registry_docs::diff::lines_of(rest)) {
    std::size_t first = 0;
    std::size_t count = 0;
    if (std::sscanf(line.data(), "@@ -%zu,%zu ", &first, &count) == 2) {
      while (at + (count == 0 ? 0 : 1) < first) result += lines.at(at++);
    } else if (line.starts_with('\\')) {
      if (is_new) result.pop_back();
    } else if (line.starts_with('+')) {
      result += line.substr(1);
    } else {
      const std::string_view old_line = lines.at(at++);
      require(line.substr(1, old_line.size()) == old_line, "a line of the text", diff);
      if (line.starts_with(' ')) result += old_line;
    }
    is_new = line.starts_with('+');
  }
  while (at < lines.size()) result += lines[at++];
  return result;
}

// What is said of a file can be said, and its diff is true.
void require_truth(const FileReport& file, const std::string& bytes,
                   const GeneratedFile& generated) {
  using namespace gen_registry_docs;
  const std::vector<advice::Steps> steps = {advice::steps(file)};
  static_cast<void>(formats::github_report({&file, 1}, steps, ".", "."));
  static_cast<void>(formats::json_report({&file, 1}, {}, {}, ""));
  require(file.state != FileState::wrong_markers || !steps.front().empty(), "advice",
          file.problem);
  if (file.state != FileState::stale) return;
  const std::string changes = diff::unified_diff(file, bytes, diff::Colors::none);
  require(patched(bytes, changes) == render_file(file.text, generated), "the new text",
          changes);
}

}  // namespace

void run(std::string_view input) try {
  if (find_ill_formed(input)) return;
  const support::TemporaryDirectory directory;
  const std::filesystem::path root = directory.path();
  std::istringstream parts{std::string(input)};
  support::write_file(root / tesmo_sorvet::registry_path, next_part(parts));
  support::write_file(root / "src/tesmo_sorvet/setup/config.py",
                      "TESMO_INSTRUCTION_CONTENT = '''" + next_part(parts) + "'''");
  const Host host = registry::bind_host(root);
  const auto files = generated_files(host);
  support::lay_out(host, root);
  std::vector<std::string> old_texts;
  for (const GeneratedFile& file : files) {
    old_texts.push_back(next_part(parts) + support::read_file(root / file.path));
    support::write_file(root / file.path, old_texts.back());
  }

  std::vector<std::string> stale;
  std::vector<std::string> written;
  bool is_refused = true;
  try {
    stale = stale_blocks(host, root);
    const std::vector<FileReport> reports = report(host, root);
    for (std::size_t i = 0; i < files.size(); ++i) {
      require_truth(reports[i], old_texts[i], files[i]);
    }
    written = write_blocks(host, root);
    is_refused = false;
  } catch (const ValueError&) {
  } catch (const MissingKeyError&) {
  }
  std::string blocks;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const std::string old_text = text::with_line_feeds(old_texts[i]);
    const std::string rendered = is_refused ? old_text : render_file(old_text, files[i]);
    const std::string text = support::read_file(root / files[i].path);
    const bool is_written = std::ranges::count(written, files[i].path) == 1;
    require(is_written == (rendered != old_text), "a write of what differs", text);
    require(text == (is_written ? rendered : old_texts[i]), "the right text", text);
    for (const auto& block : files[i].blocks) blocks += is_refused ? "" : block.second();
  }
  if (is_refused) return;
  require(stale.size() == written.size(), "a check that agrees", "");
  // A marker in a block makes another one; a carriage return is read as a line feed.
  if (find_marker(blocks, 0) || blocks.find('\r') != std::string::npos) return;
  for (const GeneratedFile& file : files) {
    const std::string text = support::read_file(root / file.path);
    require(text.find('\r') == std::string::npos, "line feeds alone", text);
    support::write_file(root / file.path, support::replaced(text, "\n", "\r\n"));
  }
  require(stale_blocks(host, root).empty(), "a clean check", "");
  require(write_blocks(host, root).empty(), "nothing left to write", "");
} catch (const registry_docs::InputError&) {
  return;  // there is no host
}

}  // namespace registry_docs::fuzz
