// A write leaves every file as it is rendered or, refused, as it was; the check agrees.
// Parts: the registry, the rules text, and what each file begins with, in the table's order.
#include <algorithm>

#include "fuzz/target.h"
#include "registry_docs/markers.h"
#include "registry_docs/text/line_endings.h"
#include "support/awkward_host.h"
#include "support/temporary_directory.h"
#include "support/text.h"
#include "tesmo_sorvet/host.h"
#include "tesmo_sorvet/registry_error.h"

namespace registry_docs::fuzz {

void run(std::string_view input) try {
  if (find_ill_formed(input)) return;
  const support::TemporaryDirectory directory;
  const std::filesystem::path root = directory.path();
  std::istringstream parts{std::string(input)};
  support::write_file(root / tesmo_sorvet::registry_path, next_part(parts));
  support::write_file(root / "src/tesmo_sorvet/setup/config.py",
                      "TESMO_INSTRUCTION_CONTENT = '''" + next_part(parts) + "'''");
  const Host host = tesmo_sorvet::bind_host(root);
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
} catch (const tesmo_sorvet::RegistryError&) {
  return;  // there is no host
}

}  // namespace registry_docs::fuzz
